#pragma once

#include "chart/Geometry.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

// Any other number is a solid line too.
struct PenStyle
{
    static constexpr std::int32_t solid = 0;
    static constexpr std::int32_t dash = 1;
    static constexpr std::int32_t dot = 2;
    static constexpr std::int32_t dashDot = 3;
    static constexpr std::int32_t dashDotDot = 4;
};

struct Pen
{
    Colour colour = 0;
    std::int32_t width = 0; // in pixels; 0 is the thinnest line, one pixel
    std::int32_t style = PenStyle::solid;

    [[nodiscard]] bool IsSolid() const { return style < PenStyle::dash || style > PenStyle::dashDotDot; }

    friend bool operator==(const Pen&, const Pen&) = default;
};

class ITextMeasure
{
public:
    // The cell that one line of text takes in the chart's font; the same for the same text.
    [[nodiscard]] virtual PixelSize GetTextExtent(std::string_view text) = 0;

protected:
    ~ITextMeasure() = default;
};

// What a chart is painted on.
class ICanvas : public ITextMeasure
{
public:
    virtual void FillRectangle(const PixelRect& rect, Colour colour) = 0;

    // Straight lines from point to point, at least two points. A solid line lights both its ends; a line of
    // one point lights that pixel.
    virtual void DrawPolyline(const Pen& pen, std::span<const PixelPoint> points) = 0;

    // The text's cell begins at the point. With a background the cell is filled with it first.
    virtual void WriteText(PixelPoint topLeft, std::string_view text, Colour colour,
                           std::optional<Colour> background) = 0;

    // What is drawn outside the area does not show, until Unclip.
    virtual void Clip(const PixelRect& area) = 0;
    virtual void Unclip() = 0;

    // One-pixel lines combined with what is there by exclusive or: drawn twice they are gone.
    virtual void DrawXorLines(std::span<const PixelLine> lines, Colour colour) = 0;

protected:
    ~ICanvas() = default;
};
