#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>

// 0x00BBGGRR
using Colour = std::uint32_t;

enum class Direction
{
    Horizontal,
    Vertical
};

inline constexpr Direction directions[] = {Direction::Horizontal, Direction::Vertical};

// Client pixels: x to the right, y downwards.
struct PixelPoint
{
    int x = 0;
    int y = 0;

    friend bool operator==(const PixelPoint&, const PixelPoint&) = default;
};

struct PixelSize
{
    int width = 0;
    int height = 0;
};

// As an area it begins at its left and top pixels and ends before its right and bottom ones. The plot's
// frame is drawn on all four edges.
struct PixelRect
{
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;

    [[nodiscard]] int GetWidth() const { return right - left; }
    [[nodiscard]] int GetHeight() const { return bottom - top; }
    [[nodiscard]] int GetLength(Direction direction) const
    {
        return direction == Direction::Horizontal ? GetWidth() : GetHeight();
    }
    [[nodiscard]] bool Contains(PixelPoint point) const
    {
        return point.x >= left && point.x < right && point.y >= top && point.y < bottom;
    }
    // Whether a column or row of pixels is the area's, its end included.
    [[nodiscard]] bool Spans(Direction direction, int pixel) const
    {
        return direction == Direction::Horizontal ? pixel >= left && pixel <= right
                                                  : pixel >= top && pixel <= bottom;
    }
    [[nodiscard]] bool Meets(const PixelRect& other) const
    {
        return left < other.right && other.left < right && top < other.bottom && other.top < bottom;
    }

    friend bool operator==(const PixelRect&, const PixelRect&) = default;
};

// The cell of a text.
[[nodiscard]] inline PixelRect MakeRect(PixelPoint topLeft, PixelSize size)
{
    return {topLeft.x, topLeft.y, topLeft.x + size.width, topLeft.y + size.height};
}

struct PixelLine
{
    PixelPoint from;
    PixelPoint to;

    friend bool operator==(const PixelLine&, const PixelLine&) = default;
};

struct DataPoint
{
    double x = 0.0;
    double y = 0.0;
};

struct DataRect
{
    double xMin = 0.0;
    double yMin = 0.0;
    double xMax = 0.0;
    double yMax = 0.0;

    // Edges included. What is not a number is nowhere.
    [[nodiscard]] bool Contains(const DataPoint& point) const
    {
        return point.x >= xMin && point.x <= xMax && point.y >= yMin && point.y <= yMax;
    }
};

// Far outside every window, and small enough that sums of a few stay within an int.
inline constexpr int farthestPixel = 1 << 24;

// The pixel of a place that may be any double at all; nowhere (NaN) is far outside.
[[nodiscard]] inline int ToPixel(double place)
{
    if (!(place > -farthestPixel))
    {
        return -farthestPixel;
    }
    return static_cast<int>(std::min(place, static_cast<double>(farthestPixel)));
}

// A place whose integral part is the nearest whole number, halves away from zero, without a call.
[[nodiscard]] inline double AddHalf(double place)
{
    constexpr double belowHalf = 0.49999999999999994; // a half would lift what is just below it
    return place + std::copysign(belowHalf, place);
}

// What std::round promises; the Windows build's own is wrong just below a half.
[[nodiscard]] inline double RoundHalfAway(double value)
{
    return std::trunc(AddHalf(value));
}

// The pixel nearest to a place.
[[nodiscard]] inline int RoundToPixel(double place)
{
    return ToPixel(AddHalf(place));
}

[[nodiscard]] inline int ClampPixel(int pixel)
{
    return std::clamp(pixel, -farthestPixel, farthestPixel);
}

// a * b / c rounded to the nearest, halves away from zero, for numbers that are not negative; -1 where
// that is no 32-bit number.
[[nodiscard]] constexpr std::int32_t MultiplyDivide(std::int32_t a, std::int32_t b, std::int32_t c)
{
    if (c == 0)
    {
        return -1;
    }
    const std::int64_t quotient = (std::int64_t{a} * b + c / 2) / c;
    return quotient <= INT32_MAX ? static_cast<std::int32_t>(quotient) : -1;
}
