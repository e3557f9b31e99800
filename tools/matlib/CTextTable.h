#pragma once

#include <string>
#include <vector>

// Rows of texts in columns that line up.
class CTextTable
{
public:
    enum class Align
    {
        left,
        right
    };
    struct Column
    {
        std::string title;
        Align align = Align::left;
    };

    explicit CTextTable(std::vector<Column> tableColumns) : columns(std::move(tableColumns)) {}

    // Adds a row with one text per column.
    void AddRow(std::vector<std::string> cells) { rows.push_back(std::move(cells)); }

    // The titles and the rows, one line each, every line after `indent` blanks. Columns without any text are
    // left out.
    [[nodiscard]] std::string Render(std::size_t indent = 0) const;

private:
    // Characters of the column's widest text; 0 when it has none.
    [[nodiscard]] std::size_t FindWidth(std::size_t column) const;

    std::vector<Column> columns;
    std::vector<std::vector<std::string>> rows;
};
