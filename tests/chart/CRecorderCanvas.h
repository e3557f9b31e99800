#pragma once

#include "chart/ICanvas.h"

#include <functional>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

// Keeps what is drawn, in order. Characters are 6 pixels wide and 12 high.
class CRecorderCanvas : public ICanvas
{
public:
    enum class Kind
    {
        Fill,
        Lines,
        Text,
        Clip,
        Unclip,
        Xor
    };

    struct Call
    {
        Kind kind;
        PixelRect rect{}; // filled, clipped, or the text's cell
        Colour colour = 0;
        Pen pen{};
        std::vector<PixelPoint> points{};
        std::string text{};
        std::optional<Colour> background{};
    };

    std::vector<Call> calls;
    PixelSize character = {6, 12};

    [[nodiscard]] PixelSize GetTextExtent(std::string_view text) override
    {
        return {static_cast<int>(text.size()) * character.width, character.height};
    }

    void FillRectangle(const PixelRect& rect, Colour colour) override
    {
        calls.push_back({.kind = Kind::Fill, .rect = rect, .colour = colour});
    }

    void DrawPolyline(const Pen& pen, std::span<const PixelPoint> points) override
    {
        calls.push_back({.kind = Kind::Lines,
                         .colour = pen.colour,
                         .pen = pen,
                         .points = {points.begin(), points.end()}});
    }

    void WriteText(PixelPoint topLeft, std::string_view text, Colour colour,
                   std::optional<Colour> background) override
    {
        calls.push_back({.kind = Kind::Text,
                         .rect = MakeRect(topLeft, GetTextExtent(text)),
                         .colour = colour,
                         .text = std::string(text),
                         .background = background});
    }

    void Clip(const PixelRect& area) override { calls.push_back({.kind = Kind::Clip, .rect = area}); }
    void Unclip() override { calls.push_back({.kind = Kind::Unclip}); }

    void DrawXorLines(std::span<const PixelLine> lines, Colour colour) override
    {
        for (const PixelLine& line : lines)
        {
            calls.push_back({.kind = Kind::Xor, .colour = colour, .points = {line.from, line.to}});
        }
    }

    // A row for the calls of one kind and colour that follow each other, or several where they are many.
    [[nodiscard]] std::string Describe() const
    {
        constexpr const char* kinds[] = {"fill", "lines", "text", "clip", "unclip", "xor"};
        std::string text;
        std::string previous;
        for (const Call& call : calls)
        {
            std::ostringstream head;
            std::ostringstream body;
            head << '\n' << kinds[static_cast<std::size_t>(call.kind)] << ' ' << std::hex << call.colour;
            if (call.pen.width != 0 || call.pen.style != PenStyle::solid)
            {
                head << " width " << call.pen.width << " style " << call.pen.style;
            }
            head << ':';
            for (const PixelPoint& point : call.points)
            {
                body << (&point == call.points.data() ? ' ' : '-') << point.x << ',' << point.y;
            }
            if (call.points.empty())
            {
                body << call.text << ' ' << call.rect.left << ',' << call.rect.top << '-' << call.rect.right
                     << ',' << call.rect.bottom;
            }
            const bool goesOn = head.str() == previous && text.size() - text.rfind('\n') < 90;
            text += (goesOn ? "" : head.str()) + body.str();
            previous = head.str();
        }
        return text;
    }

    [[nodiscard]] std::vector<Call> Find(const std::function<bool(const Call&)>& wanted) const
    {
        std::vector<Call> found;
        std::ranges::copy_if(calls, std::back_inserter(found), wanted);
        return found;
    }

    // The straight lines from point to point, in the pen's colour where one is given.
    [[nodiscard]] std::vector<PixelLine> GetLines(std::optional<Colour> colour = {}) const
    {
        std::vector<PixelLine> lines;
        for (const Call& call :
             Find([&](const Call& c) { return c.kind == Kind::Lines && (!colour || c.colour == *colour); }))
        {
            for (std::size_t i = 1; i < call.points.size(); ++i)
            {
                lines.push_back({call.points[i - 1], call.points[i]});
            }
        }
        return lines;
    }
};
