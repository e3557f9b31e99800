#include "bench/chart/CCairoCanvas.h"

#include <cmath>

namespace
{
double GetChannel(Colour colour, int shift)
{
    return ((colour >> shift) & 0xFF) / 255.0;
}
} // namespace

CCairoCanvas::CCairoCanvas(PixelSize size_)
    : size(size_), surface(cairo_image_surface_create(CAIRO_FORMAT_RGB24, size.width, size.height),
                           &cairo_surface_destroy),
      context(cairo_create(surface.get()), &cairo_destroy)
{
    cairo_select_font_face(context.get(), "Liberation Sans", CAIRO_FONT_SLANT_NORMAL,
                           CAIRO_FONT_WEIGHT_NORMAL);
    cairo_set_font_size(context.get(), 12.0);
    cairo_font_extents(context.get(), &font);
    cairo_set_line_cap(context.get(), CAIRO_LINE_CAP_SQUARE);
    cairo_set_antialias(context.get(), CAIRO_ANTIALIAS_NONE); // as the plotting libraries and the window
    for (std::size_t i = ' '; i < advances.size(); ++i)
    {
        const char text[] = {static_cast<char>(i), '\0'};
        cairo_text_extents_t extents;
        cairo_text_extents(context.get(), text, &extents);
        advances[i] = extents.x_advance;
    }
}

void CCairoCanvas::SetColour(Colour colour)
{
    cairo_set_source_rgb(context.get(), GetChannel(colour, 0), GetChannel(colour, 8), GetChannel(colour, 16));
}

PixelSize CCairoCanvas::GetTextExtent(std::string_view text)
{
    double width = 0.0;
    for (const char c : text)
    {
        width += advances[static_cast<unsigned char>(c) % advances.size()];
    }
    return {static_cast<int>(std::ceil(width)), static_cast<int>(std::ceil(font.height))};
}

void CCairoCanvas::FillRectangle(const PixelRect& rect, Colour colour)
{
    StrokeStraightLines();
    StrokeSlantedLines();
    if (colour != pen.colour)
    {
        FillBoxes();
        pen.colour = colour;
    }
    boxes.push_back(rect);
}

void CCairoCanvas::DrawPolyline(const Pen& pen_, std::span<const PixelPoint> polyline)
{
    if (pen != pen_ || !boxes.empty())
    {
        Flush();
        pen = pen_;
    }
    const PixelPoint from = polyline.front();
    const PixelPoint to = polyline.back();
    if (polyline.size() == 2 && (from.x == to.x || from.y == to.y))
    {
        straight.push_back({from, to});
        return;
    }
    points.insert(points.end(), polyline.begin(), polyline.end());
    ends.push_back(points.size());
}

void CCairoCanvas::Flush()
{
    FillBoxes();
    StrokeStraightLines();
    StrokeSlantedLines();
}

void CCairoCanvas::FillBoxes()
{
    if (boxes.empty())
    {
        return;
    }
    SetColour(pen.colour);
    for (const PixelRect& box : boxes)
    {
        cairo_rectangle(context.get(), box.left, box.top, box.GetWidth(), box.GetHeight());
    }
    cairo_fill(context.get());
    boxes.clear();
}

void CCairoCanvas::StrokeStraightLines()
{
    if (straight.empty())
    {
        return;
    }
    SetColour(pen.colour);
    cairo_set_line_width(context.get(), std::max(pen.width, 1));
    for (const PixelLine& line : straight)
    {
        cairo_move_to(context.get(), line.from.x + 0.5, line.from.y + 0.5);
        cairo_line_to(context.get(), line.to.x + 0.5, line.to.y + 0.5);
    }
    cairo_stroke(context.get());
    straight.clear();
}

// Cairo is quickest with a few lines at once.
void CCairoCanvas::StrokeSlantedLines()
{
    constexpr std::size_t mostPoints = 64;
    if (ends.empty())
    {
        return;
    }
    SetColour(pen.colour);
    cairo_set_line_width(context.get(), std::max(pen.width, 1));
    std::size_t start = 0;
    std::size_t stroked = 0;
    for (const std::size_t end : ends)
    {
        cairo_new_sub_path(context.get());
        for (std::size_t i = start; i < end; ++i)
        {
            cairo_line_to(context.get(), points[i].x + 0.5, points[i].y + 0.5);
        }
        start = end;
        if (end - stroked >= mostPoints || end == points.size())
        {
            cairo_stroke(context.get());
            stroked = end;
        }
    }
    points.clear();
    ends.clear();
}

void CCairoCanvas::WriteText(PixelPoint topLeft, std::string_view text, Colour colour,
                             std::optional<Colour> background)
{
    if (background)
    {
        const PixelSize extent = GetTextExtent(text);
        FillRectangle({topLeft.x, topLeft.y, topLeft.x + extent.width, topLeft.y + extent.height},
                      *background);
    }
    Flush();
    SetColour(colour);
    cairo_move_to(context.get(), topLeft.x, topLeft.y + std::ceil(font.ascent));
    cairo_show_text(context.get(), std::string(text).c_str());
    cairo_new_path(context.get());
}

void CCairoCanvas::Clip(const PixelRect& area)
{
    Flush();
    cairo_rectangle(context.get(), area.left, area.top, area.GetWidth(), area.GetHeight());
    cairo_clip(context.get());
}

void CCairoCanvas::Unclip()
{
    Flush();
    cairo_reset_clip(context.get());
}

void CCairoCanvas::DrawXorLines(std::span<const PixelLine> lines, Colour colour)
{
    Flush();
    cairo_set_operator(context.get(), CAIRO_OPERATOR_DIFFERENCE);
    SetColour(colour);
    for (const PixelLine& line : lines)
    {
        cairo_move_to(context.get(), line.from.x + 0.5, line.from.y + 0.5);
        cairo_line_to(context.get(), line.to.x + 0.5, line.to.y + 0.5);
        cairo_stroke(context.get());
    }
    cairo_set_operator(context.get(), CAIRO_OPERATOR_OVER);
}
