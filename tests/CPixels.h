#pragma once

#include "framework/CHandle.h"
#include "framework/DrawingScopes.h"

#include <cstdint>
#include <optional>
#include <vector>

// A bitmap of 32 bits a pixel to draw on and to read from, black at first. Colours are 0x00RRGGBB.
class CPixels
{
public:
    CPixels(int width_, int height_) : width(width_), height(height_)
    {
        BITMAPINFO info{};
        info.bmiHeader.biSize = sizeof info.bmiHeader;
        info.bmiHeader.biWidth = width;
        info.bmiHeader.biHeight = -height;
        info.bmiHeader.biPlanes = 1;
        info.bmiHeader.biBitCount = 32;
        void* data = nullptr;
        bitmap.reset(CreateDIBSection(context.get(), &info, DIB_RGB_COLORS, &data, nullptr, 0));
        bits = static_cast<const std::uint32_t*>(data);
        scope.emplace(context.get(), bitmap.get());
    }

    [[nodiscard]] HDC GetContext() const { return context.get(); }

    [[nodiscard]] std::vector<std::uint32_t> Read() const
    {
        GdiFlush();
        std::vector<std::uint32_t> pixels(bits, bits + width * height);
        for (std::uint32_t& pixel : pixels)
        {
            pixel &= 0xFFFFFF; // the rest is nobody's
        }
        return pixels;
    }

private:
    int width;
    int height;
    CMemoryDC context{CreateCompatibleDC(nullptr)};
    CBitmap bitmap;
    const std::uint32_t* bits = nullptr;
    std::optional<CSelectScope> scope;
};

// What an area of the window shows now, also where another one covers it.
inline std::vector<std::uint32_t> ReadWindow(HWND window, const RECT& area)
{
    const int width = area.right - area.left;
    const int height = area.bottom - area.top;
    const CPixels pixels(width, height);
    const CClientDC source(window);
    BitBlt(pixels.GetContext(), 0, 0, width, height, source.Get(), area.left, area.top, SRCCOPY);
    return pixels.Read();
}

inline std::vector<std::uint32_t> ReadWindow(HWND window)
{
    RECT client{};
    GetClientRect(window, &client);
    return ReadWindow(window, client);
}
