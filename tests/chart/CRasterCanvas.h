#pragma once

#include "chart/ICanvas.h"

#include <cstdlib>
#include <vector>

// Pixels, with thin lines by the usual midpoint steps; wide lines put a square at every step. Texts show as
// their filled cells.
class CRasterCanvas final : public ICanvas
{
public:
    CRasterCanvas(int width_, int height_)
        : width(width_), height(height_), clip{0, 0, width_, height_},
          pixels(static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_))
    {
    }

    [[nodiscard]] const std::vector<Colour>& GetPixels() const { return pixels; }
    [[nodiscard]] PixelSize GetTextExtent(std::string_view text) override
    {
        return {static_cast<int>(text.size()) * 6, 12};
    }

    void FillRectangle(const PixelRect& rect, Colour colour) override
    {
        for (int y = std::max(rect.top, 0); y < std::min(rect.bottom, height); ++y)
        {
            for (int x = std::max(rect.left, 0); x < std::min(rect.right, width); ++x)
            {
                Set({x, y}, colour, false);
            }
        }
    }

    void DrawPolyline(const Pen& pen, std::span<const PixelPoint> points) override
    {
        for (std::size_t i = 1; i < points.size(); ++i)
        {
            Walk(points[i - 1], points[i],
                 [&](PixelPoint at)
                 {
                     const int reach = pen.width > 1 ? pen.width / 2 : 0;
                     FillRectangle({at.x - reach, at.y - reach, at.x + reach + 1, at.y + reach + 1},
                                   pen.colour);
                 });
        }
    }

    void WriteText(PixelPoint at, std::string_view text, Colour colour, std::optional<Colour>) override
    {
        const PixelSize extent = GetTextExtent(text);
        FillRectangle({at.x, at.y, at.x + extent.width, at.y + extent.height}, colour);
    }

    void Clip(const PixelRect& area) override { clip = area; }
    void Unclip() override { clip = {0, 0, width, height}; }

    void DrawXorLines(std::span<const PixelLine> lines, Colour colour) override
    {
        for (const PixelLine& line : lines)
        {
            Walk(line.from, line.to, [&](PixelPoint at) { Set(at, colour, true); });
        }
    }

private:
    void Set(PixelPoint at, Colour colour, bool exclusive)
    {
        if (at.x >= 0 && at.x < width && at.y >= 0 && at.y < height && clip.Contains(at))
        {
            Colour& pixel = pixels[static_cast<std::size_t>(at.y) * static_cast<std::size_t>(width) +
                                   static_cast<std::size_t>(at.x)];
            pixel = exclusive ? pixel ^ colour : colour;
        }
    }

    template <typename Visit>
    static void Walk(PixelPoint from, PixelPoint to, Visit visit)
    {
        const int dx = std::abs(to.x - from.x);
        const int dy = std::abs(to.y - from.y);
        int error = dx - dy;
        while (true)
        {
            visit(from);
            if (from == to)
            {
                return;
            }
            const int twice = 2 * error;
            if (twice > -dy)
            {
                error -= dy;
                from.x += from.x < to.x ? 1 : -1;
            }
            if (twice < dx)
            {
                error += dx;
                from.y += from.y < to.y ? 1 : -1;
            }
        }
    }

    int width;
    int height;
    PixelRect clip;
    std::vector<Colour> pixels;
};
