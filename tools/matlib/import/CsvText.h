#pragma once

#include "tools/matlib/check/Finding.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

// A table as a spreadsheet exports it: rows of cells between separators, cells perhaps in double quotes, in
// which a quote is written twice and a line may end.

struct CsvCell
{
    std::string text; // without its quotes and the blanks around it
    Span where;       // in the table's text, with the quotes
};
using CsvRow = std::vector<CsvCell>;

struct CsvText
{
    std::vector<CsvRow> rows;       // those with anything in them
    std::optional<Finding> problem; // where the table cannot be cut into cells
};

// What stands between the cells: "," ";" or a tab.
struct SeparatorAnswer
{
    char separator = '\0';
    std::optional<Finding> problem;
};

// The one of the three that the head line has outside of quotes. One that has several is a problem, one that
// has none is a problem too.
[[nodiscard]] SeparatorAnswer FindSeparator(std::string_view text);

// "comma", "semicolon" or "tab".
[[nodiscard]] std::string_view SeparatorWord(char separator);

// What the text is when it is no table of plain bytes, such as UTF-16; none where it can be cut.
[[nodiscard]] std::optional<Finding> FindForeignEncoding(std::string_view text);

// How many bytes of a byte order mark the text begins with.
[[nodiscard]] std::size_t CountMark(std::string_view text);

// Cuts a text without NUL into rows and cells.
[[nodiscard]] CsvText CutIntoCells(std::string_view text, char separator);
