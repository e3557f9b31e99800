#pragma once

// Where the sizer grip is, in client pixels: it ends before its right and bottom ones.
struct GripRect
{
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;

    [[nodiscard]] constexpr bool Contains(int x, int y) const
    {
        return x >= left && x < right && y >= top && y < bottom;
    }

    friend bool operator==(const GripRect&, const GripRect&) = default;
};

// The bottom right corner of a client area.
[[nodiscard]] constexpr GripRect PlaceGrip(int clientWidth, int clientHeight, int gripWidth, int gripHeight)
{
    return {clientWidth - gripWidth, clientHeight - gripHeight, clientWidth, clientHeight};
}
