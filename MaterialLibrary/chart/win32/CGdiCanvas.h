#pragma once

#include "chart/ICanvas.h"
#include "framework/CHandle.h"

#include <vector>

// Measures texts in a font without a window. Texts are in the system's multibyte code page.
class CGdiTextMeasure final : public ITextMeasure
{
public:
    // The font is not owned and outlives its use here.
    explicit CGdiTextMeasure(HFONT font) { SetFont(font); }

    void SetFont(HFONT font);
    [[nodiscard]] PixelSize GetTextExtent(std::string_view text) override;

private:
    CMemoryDC context{CreateCompatibleDC(nullptr)};
};

// Draws on a device context, in the font that is selected there. The context is not owned; at the end of the
// canvas's life it has its own pen, drawing mode and clip region again.
class CGdiCanvas final : public ICanvas
{
public:
    explicit CGdiCanvas(HDC target);
    CGdiCanvas(const CGdiCanvas&) = delete;
    CGdiCanvas& operator=(const CGdiCanvas&) = delete;
    ~CGdiCanvas();

    [[nodiscard]] PixelSize GetTextExtent(std::string_view text) override;
    void FillRectangle(const PixelRect& rect, Colour colour) override;
    void DrawPolyline(const Pen& pen, std::span<const PixelPoint> points) override;
    void WriteText(PixelPoint topLeft, std::string_view text, Colour colour,
                   std::optional<Colour> background) override;
    void Clip(const PixelRect& area) override;
    void Unclip() override;
    void DrawXorLines(std::span<const PixelLine> lines, Colour colour) override;

private:
    void SelectPen(const Pen& pen);

    HDC context;
    int savedState;
    CPen handle; // of the selected pen, which stays selected until another is wanted
    Pen selected;
    std::vector<POINT> corners;
};
