#include "chart/win32/CGdiCanvas.h"

namespace
{
PixelSize Measure(HDC context, std::string_view text)
{
    SIZE extent{};
    GetTextExtentPoint32A(context, text.data(), static_cast<int>(text.size()), &extent);
    return {extent.cx, extent.cy};
}

RECT ToRect(const PixelRect& rect)
{
    return {rect.left, rect.top, rect.right, rect.bottom};
}

// A thin solid line ends one pixel before its last point.
bool LeavesOutItsEnd(const Pen& pen)
{
    return pen.width <= 1 && pen.IsSolid();
}
} // namespace

void CGdiTextMeasure::SetFont(HFONT font)
{
    SelectObject(context.get(), font);
}

PixelSize CGdiTextMeasure::GetTextExtent(std::string_view text)
{
    return Measure(context.get(), text);
}

CGdiCanvas::CGdiCanvas(HDC target) : context(target), savedState(SaveDC(target))
{
    SetBkMode(context, TRANSPARENT);
    SetTextAlign(context, TA_LEFT | TA_TOP);
}

CGdiCanvas::~CGdiCanvas()
{
    RestoreDC(context, savedState);
}

PixelSize CGdiCanvas::GetTextExtent(std::string_view text)
{
    return Measure(context, text);
}

void CGdiCanvas::FillRectangle(const PixelRect& rect, Colour colour)
{
    const RECT area = ToRect(rect);
    SetBkColor(context, colour);
    ExtTextOutW(context, 0, 0, ETO_OPAQUE, &area, L"", 0, nullptr);
}

void CGdiCanvas::SelectPen(const Pen& pen)
{
    if (handle && pen == selected)
    {
        return;
    }
    CPen made(CreatePen(pen.IsSolid() ? PS_SOLID : pen.style, pen.width, pen.colour));
    SelectObject(context, made.get());
    handle = std::move(made);
    selected = pen;
}

void CGdiCanvas::DrawPolyline(const Pen& pen, std::span<const PixelPoint> points)
{
    SelectPen(pen);
    corners.clear();
    for (const PixelPoint& point : points)
    {
        corners.push_back({point.x, point.y});
    }
    if (LeavesOutItsEnd(pen))
    {
        corners.push_back({points.back().x + 1, points.back().y});
    }
    Polyline(context, corners.data(), static_cast<int>(corners.size()));
}

void CGdiCanvas::WriteText(PixelPoint topLeft, std::string_view text, Colour colour,
                           std::optional<Colour> background)
{
    if (background)
    {
        FillRectangle(MakeRect(topLeft, GetTextExtent(text)), *background);
    }
    SetTextColor(context, colour);
    TextOutA(context, topLeft.x, topLeft.y, text.data(), static_cast<int>(text.size()));
}

void CGdiCanvas::Clip(const PixelRect& area)
{
    const CRegion region(CreateRectRgn(area.left, area.top, area.right, area.bottom));
    SelectClipRgn(context, region.get());
}

void CGdiCanvas::Unclip()
{
    SelectClipRgn(context, nullptr);
}

void CGdiCanvas::DrawXorLines(std::span<const PixelLine> lines, Colour colour)
{
    SelectPen({colour, 0, PenStyle::solid});
    const int before = SetROP2(context, R2_XORPEN);
    for (const PixelLine& line : lines)
    {
        MoveToEx(context, line.from.x, line.from.y, nullptr);
        LineTo(context, line.to.x, line.to.y);
    }
    SetROP2(context, before);
}
