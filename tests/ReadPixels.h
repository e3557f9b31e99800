#pragma once

#include <windows.h>

#include <vector>

// The colours of an area, row by row.
inline std::vector<COLORREF> ReadPixels(HDC dc, const RECT& area)
{
    std::vector<COLORREF> pixels;
    for (int y = area.top; y < area.bottom; ++y)
    {
        for (int x = area.left; x < area.right; ++x)
        {
            pixels.push_back(GetPixel(dc, x, y));
        }
    }
    return pixels;
}
