// Any bytes as the tables of a spreadsheet: refused at places that are there, or taken for materials that are
// written, loaded as they were described, and have the values of the cells.
#include "model/CFakeMaterialLib.h"
#include "model/CMaterial.h"
#include "reader/LoadMaterialFile.h"
#include "tools/matlib/import/ImportTables.h"
#include "writer/DescribeMaterial.h"
#include "writer/WriteMaterials.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <string>

namespace
{
void Require(bool condition)
{
    if (!condition)
    {
        std::abort();
    }
}

// The options by the bits of the first byte.
ImportOptions MakeOptions(unsigned bits)
{
    ImportOptions options;
    constexpr char separators[] = {'\0', ',', ';', '\t'};
    if ((bits & 3U) != 0)
    {
        options.separator = separators[bits & 3U];
    }
    options.decimalSign = (bits & 4U) != 0 ? DecimalSign::comma : DecimalSign::point;
    if ((bits & 8U) != 0)
    {
        options.maps = {{"Dk @ 10GHz", Property::er, 1e10}, {"D", Property::thickness, {}}};
    }
    if ((bits & 16U) != 0)
    {
        options.units = {{"Freq", "GHz"}, {"D", "mil"}, {"Temp", "C"}};
    }
    if ((bits & 32U) != 0)
    {
        options.ignoredHeads = {"X"};
        options.emptyMarks = {"-"};
    }
    return options;
}

void RequirePlaces(const std::vector<TableFinding>& findings, const std::vector<TableSource>& sources)
{
    for (std::size_t i = 0; i < sources.size() && !findings.empty(); ++i)
    {
        const CSourceLines lines(sources[i].text);
        for (const auto& [table, finding] : findings)
        {
            Require(table < sources.size() && !finding.text.empty());
            Require(table != i || (finding.where.offset <= sources[i].text.size() &&
                                   lines.PlaceOf(finding.where.offset).column > 0));
        }
    }
}

// A number that was taken, read in another way: by strtod and a multiplication.
double Evaluate(std::string cell, const Column& column, const ImportOptions& options)
{
    if (options.decimalSign == DecimalSign::comma)
    {
        std::ranges::replace(cell, ',', '.');
    }
    char* end = nullptr;
    const double number = std::strtod(cell.c_str(), &end);
    while (*end == ' ' || *end == '\t')
    {
        ++end;
    }
    const CellUnit* const own = *end != '\0' ? FindUnit(column.traits->dimension, end) : nullptr;
    const CellUnit* const unit = own != nullptr ? own : column.unit;
    return unit == nullptr ? number : number * unit->factor * std::pow(10.0, unit->exponent);
}

// The values of a table's cells that depend on frequency, by kind.
using Values = std::map<MLTABLEKIND, std::vector<double>>;

void AddCells(Values& values, const TableSource& source, const UnderstoodTable& table,
              const ImportOptions& options)
{
    const CsvText cut = CutIntoCells(source.text, table.separator);
    Require(!cut.problem && cut.rows.size() == table.rows + 1);
    for (const CsvRow& row : std::span(cut.rows).subspan(1))
    {
        for (const Column& column : table.columns)
        {
            const std::string& cell = row[column.index].text;
            const bool isEmpty = cell.empty() || (cell == "-" && !options.emptyMarks.empty());
            if (column.traits->table && !isEmpty)
            {
                values[*column.traits->table].push_back(Evaluate(cell, column, options));
            }
        }
    }
}

void RequireValues(const std::vector<MaterialDescription>& materials, const std::vector<TableSource>& sources,
                   const std::vector<UnderstoodTable>& tables, const ImportOptions& options)
{
    Values expected;
    for (std::size_t i = 0; i < sources.size(); ++i)
    {
        AddCells(expected, sources[i], tables[i], options);
    }
    Values found;
    for (const MaterialDescription& material : materials)
    {
        for (const TableDescription& table : material.tables)
        {
            std::ranges::transform(table.rows, std::back_inserter(found[table.kind]), &MLTBLENTRY::value);
        }
    }
    Require(found.size() == expected.size());
    for (auto& [kind, values] : found)
    {
        std::ranges::sort(values);
        std::ranges::sort(expected[kind]);
        Require(std::ranges::equal(values, expected[kind],
                                   [](double a, double b)
                                   { return std::abs(a - b) <= 2e-15 * std::abs(b) + 1e-320; }));
    }
}

void RequireLoaded(const std::vector<MaterialDescription>& materials)
{
    const std::string text = WriteMaterials(materials);
    CFakeMaterialLib library;
    Require(!ReadMaterials(library, PadText(text).c_str()));
    std::vector<MaterialDescription> loaded;
    for (IMaterial* const each : library.GetMaterials())
    {
        loaded.push_back(DescribeMaterial(static_cast<const CMaterial&>(*each)));
    }
    Require(loaded.size() == materials.size());
    for (std::size_t i = 0; i < loaded.size(); ++i)
    {
        loaded[i].remarks = materials[i].remarks; // no material remembers them
    }
    Require(WriteMaterials(loaded) == text);
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size == 0)
    {
        return 0;
    }
    const ImportOptions options = MakeOptions(*data);
    const std::string text(reinterpret_cast<const char*>(data) + 1, size - 1);
    const std::size_t page = text.find('\f'); // ends the first of two tables
    std::vector<TableSource> sources = {{"a.csv", text.substr(0, page)}};
    if (page != std::string::npos)
    {
        sources.push_back({"b/c.csv", text.substr(page + 1)});
    }
    const ImportedTables imported = ImportTables(sources, options);
    RequirePlaces(imported.errors, sources);
    RequirePlaces(imported.remarks, sources);
    if (imported.errors.empty())
    {
        RequireLoaded(imported.materials);
        RequireValues(imported.materials, sources, imported.tables, options);
    }
    return 0;
}
