#include "chart/CSvgCanvas.h"

#include <array>
#include <charconv>
#include <cmath>

namespace
{
// Thousandths of the font size, for the characters from the blank to the tilde.
constexpr std::array<int, 95> characterWidths = {
    278, 278, 355, 556, 556, 889, 667, 191, 333, 333, 389, 584, 278, 333,  278, 278, 556, 556, 556,
    556, 556, 556, 556, 556, 556, 556, 278, 278, 584, 584, 584, 556, 1015, 667, 667, 722, 722, 667,
    611, 778, 722, 278, 500, 667, 556, 833, 722, 778, 667, 778, 722, 667,  611, 722, 667, 944, 667,
    667, 611, 278, 278, 278, 469, 556, 333, 556, 556, 500, 556, 556, 278,  556, 556, 222, 222, 500,
    222, 833, 556, 556, 556, 556, 333, 500, 278, 556, 500, 722, 500, 500,  500, 334, 260, 334, 584};
constexpr int otherWidth = 556;
constexpr double cellHeight = 1.15;
constexpr double ascent = 0.905;

int GetThousandths(std::string_view text)
{
    int sum = 0;
    for (const char c : text)
    {
        const auto byte = static_cast<unsigned char>(c);
        if ((byte & 0xC0) == 0x80)
        {
            continue; // a further byte of a character
        }
        sum += byte >= 0x20 && byte < 0x7F ? characterWidths[byte - 0x20u] : otherWidth;
    }
    return sum;
}

std::string_view Trim(std::string_view text)
{
    const std::size_t first = text.find_first_not_of(' ');
    return first == std::string_view::npos ? std::string_view()
                                           : text.substr(first, text.find_last_not_of(' ') + 1 - first);
}

void Append(std::string& out, int number)
{
    char digits[16];
    out.append(digits, std::to_chars(digits, digits + sizeof digits, number).ptr);
}

// Strings as they are, numbers in digits.
template <typename... Parts>
void AppendAll(std::string& out, const Parts&... parts)
{
    const auto append = [&out](const auto& part)
    {
        if constexpr (std::is_same_v<std::decay_t<decltype(part)>, int>)
        {
            Append(out, part);
        }
        else
        {
            out += part;
        }
    };
    (append(parts), ...);
}

std::string FormatColour(Colour colour)
{
    constexpr char digits[] = "0123456789abcdef";
    std::string text = "#";
    for (const int shift : {4, 0, 12, 8, 20, 16})
    {
        text += digits[(colour >> shift) & 0xF];
    }
    return text;
}

std::string FormatDashes(const Pen& pen)
{
    constexpr std::array<std::string_view, 5> dashes = {"", "8 4", "1 3", "8 4 1 4", "8 4 1 4 1 4"};
    return pen.IsSolid() ? std::string()
                         : " stroke-linecap=\"butt\" stroke-dasharray=\"" +
                               std::string(dashes[static_cast<std::size_t>(pen.style)]) + "\"";
}

std::string FormatRectangle(const PixelRect& rect)
{
    std::string text;
    AppendAll(text, "<rect x=\"", rect.left, "\" y=\"", rect.top, "\" width=\"", std::max(rect.GetWidth(), 0),
              "\" height=\"", std::max(rect.GetHeight(), 0), "\"");
    return text;
}

// The characters 0x80 to 0x9F of Windows-1252; 0 where there is none.
constexpr std::array<char32_t, 32> windows1252 = {
    0x20AC, 0,      0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0,      0x017D, 0,      0,      0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0,      0x017E, 0x0178};

void AppendUtf8(std::string& out, char32_t character)
{
    const auto append = [&out](char32_t byte) { out += static_cast<char>(byte); };
    if (character < 0x80)
    {
        append(character);
        return;
    }
    if (character < 0x800)
    {
        append(0xC0 | (character >> 6));
    }
    else
    {
        append(0xE0 | (character >> 12));
        append(0x80 | ((character >> 6) & 0x3F));
    }
    append(0x80 | (character & 0x3F));
}

// How many bytes the UTF-8 character at the beginning has; 0 when there is none that XML allows.
std::size_t GetCharacterLength(std::string_view text)
{
    const auto byte = [text](std::size_t i) -> char32_t
    { return i < text.size() ? static_cast<unsigned char>(text[i]) : 0u; };
    const char32_t lead = byte(0);
    const std::size_t length = lead < 0x80 ? 1 : lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    char32_t character = lead & (length == 1 ? 0x7Fu : 0x7Fu >> length);
    for (std::size_t i = 1; i < length; ++i)
    {
        if ((byte(i) & 0xC0) != 0x80)
        {
            return 0;
        }
        character = (character << 6) | (byte(i) & 0x3F);
    }
    constexpr char32_t smallest[] = {0, 0, 0x80, 0x800, 0x10000};
    const bool surrogate = character >= 0xD800 && character <= 0xDFFF;
    const bool none = character == 0xFFFE || character == 0xFFFF || character > 0x10FFFF;
    return lead >= 0xF8 || character < smallest[length] || surrogate || none ? 0 : length;
}

bool IsUtf8(std::string_view text)
{
    for (std::size_t i = 0; i < text.size();)
    {
        const std::size_t length = GetCharacterLength(text.substr(i));
        if (length == 0)
        {
            return false;
        }
        i += length;
    }
    return true;
}

void AppendAscii(std::string& out, char character)
{
    switch (character)
    {
    case '&':
        out += "&amp;";
        break;
    case '<':
        out += "&lt;";
        break;
    case '>':
        out += "&gt;";
        break;
    case '"':
        out += "&quot;";
        break;
    default:
        out += static_cast<unsigned char>(character) < 0x20 || character == 0x7F ? '?' : character;
    }
}

// The text as XML character data in UTF-8. What is not UTF-8 is taken for Windows-1252 or Latin-1 as a whole;
// characters that XML does not allow become question marks.
std::string ToXmlText(std::string_view text)
{
    const bool utf8 = IsUtf8(text);
    std::string out;
    out.reserve(text.size());
    for (const char c : text)
    {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x80)
        {
            AppendAscii(out, c);
        }
        else if (utf8)
        {
            out += c;
        }
        else
        {
            const char32_t character = byte < 0xA0 ? windows1252[byte - 0x80u] : char32_t{byte};
            AppendUtf8(out, character != 0 ? character : U'?');
        }
    }
    return out;
}
} // namespace

CSvgCanvas::CSvgCanvas(PixelSize size_, int fontPixels_) : size(size_), fontPixels(fontPixels_) {}

std::string CSvgCanvas::GetDocument() const
{
    std::string document =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg xmlns=\"http://www.w3.org/2000/svg\"";
    AppendAll(document, " width=\"", size.width, "\" height=\"", size.height, "\" viewBox=\"0 0 ", size.width,
              " ", size.height,
              "\" font-family=\"Arial, 'Liberation Sans', Helvetica, sans-serif\" font-size=\"", fontPixels,
              "px\" stroke-linecap=\"square\" stroke-linejoin=\"round\">\n", body, openPen ? "\"/>\n" : "",
              clipped ? "</g>\n" : "", "</svg>\n");
    return document;
}

PixelSize CSvgCanvas::GetTextExtent(std::string_view text)
{
    const double width = std::ceil(GetThousandths(text) * fontPixels / 1000.0);
    return {static_cast<int>(width), RoundToPixel(cellHeight * fontPixels)};
}

void CSvgCanvas::FillRectangle(const PixelRect& rect, Colour colour)
{
    EndPath();
    AppendAll(body, FormatRectangle(rect), " fill=\"", FormatColour(colour), "\"/>\n");
}

// Polylines of the same pen become one path, through the middle of the pixels.
void CSvgCanvas::DrawPolyline(const Pen& pen, std::span<const PixelPoint> points)
{
    if (openPen != pen)
    {
        EndPath();
        openPen = pen;
        AppendAll(body, "<path fill=\"none\" stroke=\"", FormatColour(pen.colour), "\"");
        if (pen.width > 1)
        {
            AppendAll(body, " stroke-width=\"", static_cast<int>(pen.width), "\"");
        }
        AppendAll(body, FormatDashes(pen), " d=\"");
    }
    AppendAll(body, "M", points.front().x, ".5 ", points.front().y, ".5");
    if (points.size() == 2 && points.front() == points.back())
    {
        body += "h.01"; // some viewers show nothing of a line without length
        return;
    }
    for (std::size_t i = 1; i < points.size(); ++i)
    {
        AppendAll(body, i == 1 ? "l" : " ", points[i].x - points[i - 1].x, " ",
                  points[i].y - points[i - 1].y);
    }
}

void CSvgCanvas::EndPath()
{
    if (openPen)
    {
        body += "\"/>\n";
        openPen.reset();
    }
}

void CSvgCanvas::WriteText(PixelPoint topLeft, std::string_view text, Colour colour,
                           std::optional<Colour> background)
{
    EndPath();
    if (background)
    {
        FillRectangle(MakeRect(topLeft, GetTextExtent(text)), *background);
    }
    const std::string_view visible = Trim(text);
    if (visible.empty())
    {
        return;
    }
    // Viewers drop leading blanks.
    const int blanks =
        GetTextExtent(text.substr(0, static_cast<std::size_t>(visible.data() - text.data()))).width;
    AppendAll(body, "<text x=\"", topLeft.x + blanks, "\" y=\"",
              topLeft.y + RoundToPixel(ascent * fontPixels), "\" textLength=\"", GetTextExtent(visible).width,
              "\" lengthAdjust=\"spacingAndGlyphs\" fill=\"", FormatColour(colour), "\">", ToXmlText(visible),
              "</text>\n");
}

void CSvgCanvas::Clip(const PixelRect& area)
{
    Unclip();
    ++clipAreas;
    AppendAll(body, "<clipPath id=\"c", clipAreas, "\">", FormatRectangle(area),
              "/></clipPath>\n<g clip-path=\"url(#c", clipAreas, ")\">\n");
    clipped = true;
}

void CSvgCanvas::Unclip()
{
    EndPath();
    if (clipped)
    {
        body += "</g>\n";
        clipped = false;
    }
}

void CSvgCanvas::DrawXorLines(std::span<const PixelLine> lines, Colour colour)
{
    EndPath();
    for (const PixelLine& line : lines)
    {
        AppendAll(body, "<path style=\"mix-blend-mode:difference\" fill=\"none\" stroke=\"",
                  FormatColour(colour), "\" d=\"M", line.from.x, ".5 ", line.from.y, ".5L", line.to.x, ".5 ",
                  line.to.y, ".5\"/>\n");
    }
}

std::string DrawSvgPicture(CChartModel model, const ChartStyle& style, PixelSize size, int fontPixels)
{
    const PixelRect client = {0, 0, size.width, size.height};
    CSvgCanvas canvas(size, fontPixels);
    LayOutChart(model, client, canvas);
    PaintChart({model, style, ChartPointer(), client}, canvas);
    return canvas.GetDocument();
}
