#include "tools/matlib/FindingOutput.h"

#include "tools/matlib/Wording.h"
#include "tools/matlib/check/CodePage.h"

#include <algorithm>

namespace
{
constexpr std::size_t longestExcerpt = 110; // characters of a line

std::string_view WordFor(Severity severity)
{
    switch (severity)
    {
    case Severity::error:
        return "error";
    case Severity::warning:
        return "warning";
    default:
        return "note";
    }
}

std::string_view ColourFor(Severity severity, const Palette& palette)
{
    switch (severity)
    {
    case Severity::error:
        return palette.error;
    case Severity::warning:
        return palette.warning;
    default:
        return palette.note;
    }
}

std::string Paint(std::string_view text, std::string_view colour, const Palette& palette)
{
    return std::string(colour) + std::string(text) + std::string(palette.end);
}

bool ContinuesCharacter(char c)
{
    return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}

// Tabs and characters in UTF-8 as they are, "?" for other bytes that are no characters.
std::string Show(std::string_view text)
{
    std::string shown;
    while (!text.empty())
    {
        const bool isAscii = (text.front() & '\x80') == 0;
        const std::string_view character = isAscii ? text.substr(0, 1) : FindCharacter(text);
        const bool isAsItIs = character == "\t" || character.size() > 1;
        shown += isAsItIs ? std::string(character) : isAscii ? MakePrintable(character) : "?";
        text.remove_prefix(character.size());
    }
    return shown;
}

// As the text takes room on the terminal: the bytes of a character in UTF-8 share one column.
std::string Underline(std::string_view before, std::string_view word)
{
    std::string blank;
    for (const char c : Show(before))
    {
        blank += c == '\t' ? "\t" : ContinuesCharacter(c) ? "" : " ";
    }
    const std::string shown = Show(word);
    const auto width =
        shown.size() - static_cast<std::size_t>(std::ranges::count_if(shown, ContinuesCharacter));
    return blank + "^" + std::string(std::max<std::size_t>(width, 1) - 1, '~');
}

// The line of the place and the caret below; of a long line the part around the word.
std::string RenderExcerpt(const CSourceLines& lines, Place place, std::size_t length, const Palette& palette)
{
    std::string_view line = lines.GetLine(place.line);
    std::size_t column = std::min<std::size_t>(place.column - 1, line.size());
    std::string_view before;
    if (column + std::min<std::size_t>(length, 20) > longestExcerpt)
    {
        const std::size_t cut = column - longestExcerpt / 2;
        line.remove_prefix(cut);
        column -= cut;
        before = "...";
    }
    const std::string_view after = line.size() > longestExcerpt ? "..." : "";
    line = line.substr(0, longestExcerpt);
    const std::string number = std::to_string(place.line);
    const std::string gutter(std::max<std::size_t>(number.size(), 4), ' ');
    return std::string(gutter.size() - number.size(), ' ') + number + " | " + std::string(before) +
           Show(line) + std::string(after) + "\n" + gutter + " | " + std::string(before.size(), ' ') +
           Paint(Underline(line.substr(0, column), line.substr(column, length)), palette.caret, palette) +
           "\n";
}

std::string RenderAt(std::string_view path, const CSourceLines& lines, Span where, Severity severity,
                     const std::string& text, const Palette& palette)
{
    const Place place = lines.PlaceOf(where.offset);
    const std::string at =
        MakePrintable(path) + ":" + std::to_string(place.line) + ":" + std::to_string(place.column) + ":";
    return Paint(at, palette.file, palette) + " " +
           Paint(std::string(WordFor(severity)) + ":", ColourFor(severity, palette), palette) + " " + text +
           "\n" + RenderExcerpt(lines, place, where.length, palette);
}

std::string DescribeRule(std::string_view rule)
{
    return rule.empty() ? "" : " [" + std::string(rule) + "]";
}
} // namespace

Palette ChoosePalette(bool inColour)
{
    return inColour ? Palette{"\x1b[1m", "\x1b[1;31m", "\x1b[1;35m", "\x1b[1;36m", "\x1b[1;32m", "\x1b[0m"}
                    : Palette{};
}

std::string RenderFinding(std::string_view path, const CSourceLines& lines, const Finding& finding,
                          Severity severity, const Palette& palette)
{
    std::string text =
        RenderAt(path, lines, finding.where, severity, finding.text + DescribeRule(finding.rule), palette);
    if (finding.note)
    {
        text += RenderAt(path, lines, finding.note->where, Severity::note, finding.note->text, palette);
    }
    return text;
}

Json FindingAsJson(const CSourceLines& lines, const Finding& finding, Severity severity)
{
    const Place place = lines.PlaceOf(finding.where.offset);
    Json json = {{"severity", WordFor(severity)},
                 {"line", place.line},
                 {"column", place.column},
                 {"length", finding.where.length}};
    if (!finding.rule.empty())
    {
        json["rule"] = finding.rule;
    }
    json["text"] = finding.text;
    if (finding.note)
    {
        const Place noted = lines.PlaceOf(finding.note->where.offset);
        json["note"] = {{"line", noted.line}, {"column", noted.column}, {"text", finding.note->text}};
    }
    if (finding.library)
    {
        json["library"] = {{"line", finding.library->place.line},
                           {"column", finding.library->place.column},
                           {"reason", finding.library->reason}};
    }
    return json;
}
