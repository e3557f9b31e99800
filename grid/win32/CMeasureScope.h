#pragma once

#include "framework/DrawingScopes.h"

// The client area's device context with the font of the window selected.
class CMeasureScope
{
public:
    explicit CMeasureScope(HWND window)
        : client(window), font(client.Get(), reinterpret_cast<HFONT>(SendMessageW(window, WM_GETFONT, 0, 0)))
    {
    }

    [[nodiscard]] HDC Get() const { return client.Get(); }

    [[nodiscard]] int GetAverageCharacter() const { return GetMetrics().tmAveCharWidth; }
    [[nodiscard]] int GetWidestCharacter() const { return GetMetrics().tmMaxCharWidth; }

private:
    [[nodiscard]] TEXTMETRICW GetMetrics() const
    {
        TEXTMETRICW metrics{};
        GetTextMetricsW(client.Get(), &metrics);
        return metrics;
    }

    CClientDC client;
    CSelectScope font;
};
