#pragma once

#include "tools/matlib/import/CMaterialCollector.h"

#include <span>
#include <string>
#include <vector>

// A table to be read; the text is the file's bytes.
struct TableSource
{
    std::string path;
    std::string text;
};

// What was understood of it.
struct UnderstoodTable
{
    char separator = '\0';
    std::vector<Column> columns;
    std::vector<IgnoredColumn> ignored;
    std::vector<bool> unitsInCells; // of the columns: whether their numbers bring units
    std::size_t rows = 0;
};

struct ImportedTables
{
    std::vector<UnderstoodTable> tables;        // of the sources
    std::vector<MaterialDescription> materials; // to be written; none where there are errors
    std::vector<TableFinding> errors;           // in the order of the tables and their texts
    std::vector<TableFinding> remarks; // alike: what somebody should know who did not write the file by hand
    std::string problem;               // an error of the options: a head that no table has
};

// Makes materials from tables. Rows of one name belong to one material, in whichever table they stand. Every
// value can be written and is read back as it stands in the materials.
[[nodiscard]] ImportedTables ImportTables(std::span<const TableSource> sources, const ImportOptions& options);
