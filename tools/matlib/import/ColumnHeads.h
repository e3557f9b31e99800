#pragma once

#include "tools/matlib/import/CellNumber.h"
#include "tools/matlib/import/CsvText.h"
#include "tools/matlib/import/ImportOptions.h"

#include <optional>
#include <string>
#include <vector>

// A column of a table that has a meaning.
struct Column
{
    std::size_t index; // in the row
    CsvCell head;
    const PropertyTraits* traits;
    const CellUnit* unit = nullptr;  // of its numbers; null: in the cells, or none at all
    std::optional<double> frequency; // Hz, of all its values
};

// One that is left out.
struct IgnoredColumn
{
    std::size_t index;
    std::string head;
};

// The columns that the heads name, and what is wrong with the others. One without a head is left to whoever
// looks at the rows.
struct Columns
{
    std::vector<Column> columns;
    std::vector<IgnoredColumn> ignored;
    std::vector<Finding> problems;
};
[[nodiscard]] Columns UnderstandHeads(const CsvRow& heads, const ImportOptions& options);

// The property and, behind an "@", the frequency that --map names; `problem` as in a CellNumber.
struct MapTarget
{
    const PropertyTraits* traits = nullptr;
    std::optional<double> frequency;
    std::string problem;
};
[[nodiscard]] MapTarget ParseMapTarget(std::string_view text);
