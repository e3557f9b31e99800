#include "tools/matlib/check/SourceText.h"

#include <algorithm>

namespace
{
constexpr std::string_view blanks = " \t";
constexpr std::string_view blanksAndBreaks = " \t\r\n";
constexpr std::string_view signs = "{}()=";
constexpr std::string_view endsWord = " \t\r\n*{}()=";

std::size_t OrEnd(std::size_t found, std::string_view text)
{
    return std::min(found, text.size());
}
} // namespace

Span WordAt(std::string_view text, std::size_t offset)
{
    if (offset >= text.size())
    {
        return {text.size(), 0};
    }
    if (signs.find(text[offset]) != std::string_view::npos)
    {
        return {offset, 1};
    }
    if (text[offset] == '"')
    {
        const std::size_t end = OrEnd(text.find_first_of("\"\r\n", offset + 1), text);
        return {offset, end - offset + (end < text.size() && text[end] == '"' ? 1 : 0)};
    }
    return {offset, OrEnd(text.find_first_of(endsWord, offset), text) - offset};
}

Span WordBefore(std::string_view text, std::size_t offset)
{
    const std::size_t last =
        offset == 0 ? std::string_view::npos : text.find_last_not_of(blanksAndBreaks, offset - 1);
    if (last == std::string_view::npos)
    {
        return {0, 0};
    }
    if (signs.find(text[last]) != std::string_view::npos)
    {
        return {last, 1};
    }
    const std::size_t before = text.find_last_of(endsWord, last);
    const std::size_t first = before == std::string_view::npos ? 0 : before + 1;
    return {first, last + 1 - first};
}

std::size_t SkipBlanks(std::string_view text, std::size_t offset, bool alsoLineBreaks)
{
    return OrEnd(text.find_first_not_of(alsoLineBreaks ? blanksAndBreaks : blanks, offset), text);
}

std::size_t FindEnd(std::string_view text)
{
    const std::size_t last = text.find_last_not_of(blanksAndBreaks);
    return last == std::string_view::npos ? 0 : last + 1;
}

std::size_t FindOpenParenthesis(std::string_view text, std::size_t from, std::size_t to)
{
    std::size_t open = std::string_view::npos;
    for (std::size_t i = from; i < to; ++i)
    {
        if (text[i] == '*')
        {
            i = OrEnd(text.find_first_of("\r\n", i), text);
        }
        else if (text[i] == '"')
        {
            i = OrEnd(text.find('"', i + 1), text);
        }
        else if (text[i] == '(')
        {
            open = i;
        }
        else if (text[i] == ')')
        {
            open = std::string_view::npos;
        }
    }
    return open;
}

CSourceLines::CSourceLines(std::string_view wholeText) : text(wholeText)
{
    constexpr std::size_t shortLine = 16;
    starts.reserve(text.size() / shortLine + 1);
    starts.push_back(0);
    // Lines are short: a search for the end of each one costs more than a look at each character.
    const auto mayEndLine = [](char c) { return static_cast<unsigned char>(c) <= '\r'; };
    for (auto i = std::ranges::find_if(text, mayEndLine); i != text.end();
         i = std::find_if(i + 1, text.end(), mayEndLine))
    {
        const bool isBeforeLineFeed = i + 1 != text.end() && i[1] == '\n';
        if (*i == '\n' || (*i == '\r' && !isBeforeLineFeed))
        {
            starts.push_back(static_cast<std::size_t>(i - text.begin()) + 1);
        }
    }
}

Place CSourceLines::PlaceOf(std::size_t offset) const
{
    const auto behind = std::ranges::upper_bound(starts, offset);
    const auto line = static_cast<unsigned>(behind - starts.begin());
    return {line, static_cast<unsigned>(offset - starts[line - 1]) + 1};
}

std::string_view CSourceLines::GetLine(unsigned line) const
{
    const std::size_t start = starts.at(line - 1);
    return text.substr(start, OrEnd(text.find_first_of("\r\n", start), text) - start);
}
