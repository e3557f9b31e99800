#include "tools/matlib/CTextTable.h"

#include <algorithm>

namespace
{
// Characters of a UTF-8 text; for a text in another code page about that.
std::size_t CountCharacters(const std::string& text)
{
    return static_cast<std::size_t>(
        std::ranges::count_if(text, [](char character) { return (character & 0xC0) != 0x80; }));
}

void AppendCell(std::string& line, const std::string& cell, std::size_t width, CTextTable::Align align)
{
    const std::size_t filling = width - CountCharacters(cell);
    line.append(align == CTextTable::Align::right ? filling : 0, ' ');
    line += cell;
    line.append(align == CTextTable::Align::left ? filling : 0, ' ');
}
} // namespace

std::size_t CTextTable::FindWidth(std::size_t column) const
{
    std::size_t width = 0;
    for (const auto& row : rows)
    {
        width = std::max(width, CountCharacters(row[column]));
    }
    return width == 0 ? 0 : std::max(width, CountCharacters(columns[column].title));
}

std::string CTextTable::Render(std::size_t indent) const
{
    constexpr std::size_t gap = 2;
    std::vector<std::string> lines(rows.size() + 1, std::string(indent, ' '));
    for (std::size_t column = 0; column < columns.size(); ++column)
    {
        const std::size_t width = FindWidth(column);
        if (width == 0)
        {
            continue;
        }
        const Align align = columns[column].align;
        AppendCell(lines[0], columns[column].title, width, align);
        lines[0].append(gap, ' ');
        for (std::size_t row = 0; row < rows.size(); ++row)
        {
            AppendCell(lines[row + 1], rows[row][column], width, align);
            lines[row + 1].append(gap, ' ');
        }
    }
    std::string text;
    for (const std::string& line : lines)
    {
        text += line.substr(0, line.find_last_not_of(' ') + 1) + "\n";
    }
    return text;
}
