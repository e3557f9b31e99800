#include "tools/matlib/CFailure.h"
#include "tools/matlib/CTextTable.h"
#include "tools/matlib/Console.h"
#include "tools/matlib/FindingOutput.h"
#include "tools/matlib/InputFiles.h"
#include "tools/matlib/OutputFile.h"
#include "tools/matlib/Platform.h"
#include "tools/matlib/Wording.h"
#include "tools/matlib/check/CheckText.h"
#include "tools/matlib/check/CodePage.h"
#include "tools/matlib/commands/Commands.h"
#include "tools/matlib/import/ImportTables.h"
#include "tools/matlib/import/Templates.h"
#include "writer/WriteMaterials.h"

#include <algorithm>

namespace
{
constexpr std::size_t mostErrors = 20; // that are printed

std::vector<TableSource> ReadTables(const std::vector<std::string>& paths)
{
    std::vector<TableSource> sources;
    for (const std::string& path : paths)
    {
        const FileText text = ReadInput(path);
        if (!text.problem.empty())
        {
            throw CFailure(MakePrintable(path) + ": " + text.problem);
        }
        sources.push_back({NameInput(path), std::string(text.GetText())});
    }
    return sources;
}

bool IsUtf8(std::string_view text)
{
    constexpr char beyondAscii = '\x80';
    while (!text.empty())
    {
        const bool isAscii = (text.front() & beyondAscii) == 0;
        const std::size_t length = isAscii ? 1 : FindCharacter(text).size();
        if (!isAscii && length == 1)
        {
            return false;
        }
        text.remove_prefix(length);
    }
    return true;
}

// The command line can be in another encoding than the tables, whose heads it names.
ImportOptions AdaptToTables(ImportOptions options, const std::vector<TableSource>& sources)
{
    if (!std::ranges::all_of(sources, [](const TableSource& source) { return IsUtf8(source.text); }))
    {
        return options; // both are in the system's code page
    }
    for (MappedHead& map : options.maps)
    {
        map.head = MakeUtf8Path(map.head);
    }
    for (StatedUnit& stated : options.units)
    {
        stated.head = MakeUtf8Path(stated.head);
    }
    for (auto* const texts : {&options.ignoredHeads, &options.emptyMarks})
    {
        std::ranges::transform(*texts, texts->begin(), MakeUtf8Path);
    }
    return options;
}

void WriteMaterialFile(const Options& options, std::string_view text)
{
    WriteOutputFile(options.materialPath, text, options.force ? ExistingFile::replace : ExistingFile::keep);
}

// The lines of the tables, for places in them.
std::vector<CSourceLines> SplitIntoLines(const std::vector<TableSource>& sources)
{
    std::vector<CSourceLines> lines;
    std::ranges::transform(sources, std::back_inserter(lines),
                           [](const TableSource& source) { return CSourceLines(source.text); });
    return lines;
}

std::string RenderErrors(const std::vector<TableSource>& sources, const std::vector<TableFinding>& errors)
{
    const auto lines = SplitIntoLines(sources);
    std::string text;
    for (const auto& [table, finding] : std::span(errors).first(std::min(errors.size(), mostErrors)))
    {
        text += RenderFinding(sources[table].path, lines[table], finding, Severity::error, {});
    }
    if (errors.size() > mostErrors)
    {
        text += "... and " + FormatCount(static_cast<int>(errors.size() - mostErrors), "more error") + "\n";
    }
    return text;
}

std::string DescribeUnit(const UnderstoodTable& table, std::size_t column)
{
    const CellUnit* const unit = table.columns[column].unit;
    return unit != nullptr ? std::string(unit->name) : table.unitsInCells[column] ? "in its cells" : "";
}

std::string DescribeMeaning(const Column& column)
{
    return std::string(column.traits->taken) +
           (column.frequency ? " at " + FormatFrequency(*column.frequency) : "");
}

std::string RenderTable(const TableSource& source, const UnderstoodTable& table)
{
    CTextTable columns({{"column", CTextTable::Align::right}, {"head"}, {"taken as"}, {"unit"}});
    for (std::size_t i = 0; i < table.columns.size(); ++i)
    {
        const Column& column = table.columns[i];
        columns.AddRow({std::to_string(column.index + 1), MakePrintable(JoinLines(column.head.text)),
                        DescribeMeaning(column), DescribeUnit(table, i)});
    }
    for (const IgnoredColumn& ignored : table.ignored)
    {
        columns.AddRow(
            {std::to_string(ignored.index + 1), MakePrintable(JoinLines(ignored.head)), "left out", ""});
    }
    return MakePrintable(source.path) + ": " + FormatCount(static_cast<int>(table.rows), "row") + ", a " +
           std::string(SeparatorWord(table.separator)) + " between cells\n" + columns.Render(2);
}

struct WrittenCounts
{
    int materials = 0;
    int tables = 0;
    int rows = 0;
};

WrittenCounts CountMaterials(const std::vector<MaterialDescription>& materials)
{
    WrittenCounts counts;
    for (const MaterialDescription& material : materials)
    {
        ++counts.materials;
        for (const TableDescription& table : material.tables)
        {
            ++counts.tables;
            counts.rows += static_cast<int>(table.rows.size());
        }
    }
    return counts;
}

std::string RenderImport(const std::vector<TableSource>& sources, const ImportedTables& imported)
{
    std::string text;
    const auto lines = SplitIntoLines(sources);
    for (std::size_t i = 0; i < sources.size(); ++i)
    {
        text += RenderTable(sources[i], imported.tables[i]);
        for (const auto& [table, finding] : imported.remarks)
        {
            text += table == i ? RenderFinding(sources[i].path, lines[i], finding, Severity::note, {}) : "";
        }
    }
    return text;
}

std::string RenderWritten(const std::string& path, const ImportedTables& imported, const CheckedText& checked,
                          const std::string& written)
{
    std::string text;
    const CSourceLines lines(written);
    for (const Finding& finding : checked.findings)
    {
        text += RenderFinding(path, lines, finding, Severity::warning, {});
    }
    const WrittenCounts counts = CountMaterials(imported.materials);
    const bool isMetal = imported.materials.front().kind == MLMATERIAL_METAL;
    text += MakePrintable(path) + ": written, " +
            FormatCount(counts.materials, isMetal ? "metal" : "dielectric") + ", " +
            FormatCount(counts.tables, "table") + ", " + FormatCount(counts.rows, "row");
    const auto warnings = static_cast<int>(checked.findings.size());
    return text + (warnings > 0 ? ", " + FormatCount(warnings, "warning") : "") + "\n";
}

Json FindingsAsJson(const std::vector<TableFinding>& findings, std::size_t table, const CSourceLines& lines,
                    Severity severity)
{
    Json list = Json::array();
    for (const TableFinding& each : findings)
    {
        if (each.table == table)
        {
            list.push_back(FindingAsJson(lines, each.finding, severity));
        }
    }
    return list;
}

Json TableAsJson(const TableSource& source, const UnderstoodTable& table)
{
    Json columns = Json::array();
    for (std::size_t i = 0; i < table.columns.size(); ++i)
    {
        const Column& column = table.columns[i];
        columns.push_back({{"column", column.index + 1},
                           {"head", column.head.text},
                           {"property", column.traits->word},
                           {"unit", DescribeUnit(table, i)},
                           {"frequency", NumberOrNull(column.frequency)}});
    }
    for (const IgnoredColumn& ignored : table.ignored)
    {
        columns.push_back({{"column", ignored.index + 1}, {"head", ignored.head}, {"property", nullptr}});
    }
    return {{"path", source.path}, {"rows", table.rows}, {"columns", columns}};
}

Json ImportAsJson(const std::vector<TableSource>& sources, const ImportedTables& imported)
{
    Json json = {{"good", imported.errors.empty()}, {"tables", Json::array()}};
    const auto lines = SplitIntoLines(sources);
    for (std::size_t i = 0; i < sources.size(); ++i)
    {
        Json table = imported.errors.empty() ? TableAsJson(sources[i], imported.tables[i])
                                             : Json{{"path", sources[i].path}};
        table["errors"] = FindingsAsJson(imported.errors, i, lines[i], Severity::error);
        table["remarks"] = FindingsAsJson(imported.remarks, i, lines[i], Severity::note);
        json["tables"].push_back(std::move(table));
    }
    return json;
}

Json WrittenAsJson(const std::string& path, const ImportedTables& imported, const CheckedText& checked,
                   const std::string& written)
{
    const WrittenCounts counts = CountMaterials(imported.materials);
    Json json = {{"path", path},
                 {"materials", counts.materials},
                 {"tables", counts.tables},
                 {"rows", counts.rows},
                 {"findings", Json::array()}};
    const CSourceLines lines(written);
    for (const Finding& finding : checked.findings)
    {
        json["findings"].push_back(FindingAsJson(lines, finding, Severity::warning));
    }
    return json;
}

int WriteTemplate(const Options& options)
{
    const std::string_view text = GetTemplate(options.templateName);
    if (options.materialPath.empty() || options.materialPath == "-")
    {
        PrintOutput(text);
        return exitFine;
    }
    WriteMaterialFile(options, text);
    PrintOutput(MakePrintable(options.materialPath) + ": written\n");
    return exitFine;
}
} // namespace

int RunImport(const Options& options)
{
    if (!options.templateName.empty())
    {
        return WriteTemplate(options);
    }
    const std::vector<TableSource> sources = ReadTables(options.tables);
    const ImportedTables imported = ImportTables(sources, AdaptToTables(options.import, sources));
    if (!imported.problem.empty())
    {
        throw CFailure(imported.problem);
    }
    if (!imported.errors.empty())
    {
        PrintOutput(options.json ? RenderJson(ImportAsJson(sources, imported))
                                 : RenderErrors(sources, imported.errors));
        return exitFailed;
    }
    const std::string text = WriteMaterials(imported.materials);
    const CheckedText checked = CheckText(options.materialPath, text);
    if (checked.refusal)
    {
        throw CFailure("what these tables give would not load: " + std::string(checked.refusal->reason));
    }
    WriteMaterialFile(options, text);
    if (options.json)
    {
        Json json = ImportAsJson(sources, imported);
        json["written"] = WrittenAsJson(options.materialPath, imported, checked, text);
        PrintOutput(RenderJson(json));
        return exitFine;
    }
    PrintOutput(RenderImport(sources, imported) +
                RenderWritten(options.materialPath, imported, checked, text));
    return exitFine;
}
