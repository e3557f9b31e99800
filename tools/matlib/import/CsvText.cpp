#include "tools/matlib/import/CsvText.h"

#define CSV_IO_NO_THREAD // its threads read ahead, and the text is in memory
#include <libfccp/csv.h>

namespace
{
constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view separators = ",;\t";
constexpr unsigned mostLines = 50; // of a cell: a quote that is not closed is found near its beginning

using Trim = io::trim_chars<' ', '\t', '\r', '\n'>;

// The parts of the library that know quotes. Its reader has as many columns as the program says; a table has
// as many as its author wrote.
struct QuoteRules
{
    const char* (*findCellEnd)(const char*);
    void (*unescape)(char*&, char*&);
};

template <char separator>
constexpr QuoteRules quoteRules = {io::double_quote_escape<separator, '"'>::find_next_column_end,
                                   io::double_quote_escape<separator, '"'>::unescape};

const QuoteRules& RulesFor(char separator)
{
    return separator == ';' ? quoteRules<';'> : separator == '\t' ? quoteRules<'\t'> : quoteRules<','>;
}

// Whether the text has quotes around it and in pairs between them, or none. The library unescapes no others
// safely.
bool HasGoodQuotes(std::string_view text)
{
    if (!text.starts_with('"'))
    {
        return text.find('"') == std::string_view::npos;
    }
    std::size_t quote = text.find('"', 1);
    while (quote != std::string_view::npos && text.substr(quote).starts_with("\"\""))
    {
        quote = text.find('"', quote + 2);
    }
    return quote != std::string_view::npos && quote + 1 == text.size();
}

class CCellCutter
{
public:
    CCellCutter(std::string_view text, char separator) : rules(RulesFor(separator)), buffer(text) {}

    CsvText Cut()
    {
        at = CountMark(buffer);
        while (at < buffer.size() && !result.problem)
        {
            CutRow();
        }
        return std::move(result);
    }

private:
    void CutRow()
    {
        EndLineAt(FindBreak(at));
        CsvRow row;
        bool hasText = false;
        for (bool isLast = false; !isLast && !result.problem;)
        {
            const std::size_t end = FindCellEnd();
            isLast = end == lineEnd;
            row.push_back(TakeCell(end));
            hasText = hasText || !row.back().text.empty();
            at = end + (isLast ? 0 : 1);
        }
        Restore();
        at = std::min(lineEnd + (std::string_view(buffer).substr(lineEnd).starts_with("\r\n") ? 2 : 1),
                      buffer.size());
        if (hasText && !result.problem)
        {
            result.rows.push_back(std::move(row));
        }
    }

    [[nodiscard]] std::size_t FindBreak(std::size_t from) const
    {
        return std::min(buffer.find_first_of("\r\n", from), buffer.size());
    }

    // The library stops at a NUL.
    void EndLineAt(std::size_t offset)
    {
        lineEnd = offset;
        lineBreak = buffer.c_str()[offset];
        buffer.data()[offset] = '\0';
    }

    void Restore() { buffer.data()[lineEnd] = lineBreak; }

    // A cell in quotes goes on behind the end of its line.
    std::size_t FindCellEnd()
    {
        for (unsigned lines = 1;; ++lines)
        {
            try
            {
                return static_cast<std::size_t>(rules.findCellEnd(buffer.data() + at) - buffer.data());
            }
            catch (const io::error::escaped_string_not_closed&)
            {
                Restore();
                if (lineEnd == buffer.size() || lines == mostLines)
                {
                    Refuse(at, FindBreak(at), "The double quote of this cell is not closed.");
                    EndLineAt(lineEnd);
                    return lineEnd;
                }
                const bool isPair = std::string_view(buffer).substr(lineEnd).starts_with("\r\n");
                EndLineAt(FindBreak(lineEnd + (isPair ? 2 : 1)));
            }
        }
    }

    CsvCell TakeCell(std::size_t end)
    {
        std::string cell = buffer.substr(at, end - at);
        char* first = cell.data();
        char* last = first + cell.size();
        Trim::trim(first, last);
        const auto offset = at + static_cast<std::size_t>(first - cell.data());
        const std::string_view raw(first, last);
        const Span where{offset, raw.size()};
        if (!HasGoodQuotes(raw))
        {
            Refuse(where.offset, where.offset + where.length,
                   "A double quote stands inside this cell. Around a whole cell quotes are fine, and one "
                   "within is written twice; for inches write in or inch.");
            return {};
        }
        rules.unescape(first, last);
        Trim::trim(first, last);
        return {std::string(first, last), where};
    }

    void Refuse(std::size_t from, std::size_t to, const char* text)
    {
        if (!result.problem)
        {
            result.problem = Finding{true, {from, to - from}, {}, text};
        }
    }

    const QuoteRules& rules;
    std::string buffer;
    std::size_t at = 0;
    std::size_t lineEnd = 0;
    char lineBreak = '\0';
    CsvText result;
};

// The first line with anything in it; of one in quotes all lines.
std::string_view FindHeadLine(std::string_view text)
{
    text.remove_prefix(CountMark(text));
    text.remove_prefix(std::min(text.find_first_not_of("\r\n"), text.size()));
    bool isQuoted = false;
    for (std::size_t i = 0; i < text.size(); ++i)
    {
        isQuoted = isQuoted != (text[i] == '"');
        if (!isQuoted && (text[i] == '\r' || text[i] == '\n'))
        {
            return text.substr(0, i);
        }
    }
    return text;
}

bool HasOutsideQuotes(std::string_view line, char wanted)
{
    bool isQuoted = false;
    for (const char c : line)
    {
        isQuoted = isQuoted != (c == '"');
        if (c == wanted && !isQuoted)
        {
            return true;
        }
    }
    return false;
}
} // namespace

std::string_view SeparatorWord(char separator)
{
    return separator == ';' ? "semicolon" : separator == '\t' ? "tab" : "comma";
}

SeparatorAnswer FindSeparator(std::string_view text)
{
    const std::string_view head = FindHeadLine(text);
    const Span where{static_cast<std::size_t>(head.data() - text.data()), head.size()};
    std::string found;
    for (const char separator : separators)
    {
        found += HasOutsideQuotes(head, separator) ? std::string(1, separator) : "";
    }
    if (found.size() == 1)
    {
        return {found.front(), {}};
    }
    if (found.empty())
    {
        return {{},
                Finding{true,
                        where,
                        {},
                        "The head line has neither comma nor semicolon nor tab between "
                        "columns. If the table has one column, say --separator comma."}};
    }
    std::string words;
    for (const char separator : found)
    {
        words += (words.empty() ? "" : " and ") + std::string(SeparatorWord(separator));
    }
    return {{},
            Finding{true,
                    where,
                    {},
                    "The head line has " + words +
                        ", so what separates the columns is not clear. Say it: --separator " +
                        std::string(SeparatorWord(found.back())) + "."}};
}

std::size_t CountMark(std::string_view text)
{
    return text.starts_with(byteOrderMark) ? byteOrderMark.size() : 0;
}

std::optional<Finding> FindForeignEncoding(std::string_view text)
{
    using namespace std::string_view_literals;
    if (text.starts_with("\xFF\xFE"sv) || text.starts_with("\xFE\xFF"sv))
    {
        return Finding{
            true, {0, 2}, {}, "The table is UTF-16, two bytes for each character. Save it as CSV in UTF-8."};
    }
    if (const std::size_t nul = text.find('\0'); nul != std::string_view::npos)
    {
        return Finding{true,
                       {nul, 1},
                       {},
                       "A NUL byte stands here, which no plain text has. A spreadsheet's own file is no "
                       "table either: save it as CSV in UTF-8."};
    }
    if (text.find_first_not_of(" \t\r\n") == std::string_view::npos)
    {
        return Finding{true, {0, 0}, {}, "The table is empty."};
    }
    return std::nullopt;
}

CsvText CutIntoCells(std::string_view text, char separator)
{
    return CCellCutter(text, separator).Cut();
}
