#include "tools/matlib/import/ImportTables.h"

#include "tools/matlib/Wording.h"
#include "tools/matlib/import/CTableReader.h"

#include <algorithm>
#include <iterator>

namespace
{
// "board.v2" of "in/board.v2.csv".
std::string NameAfter(const std::string& path)
{
    std::string name = path.substr(path.find_last_of("/\\") + 1);
    const std::size_t point = name.rfind('.');
    name = point == 0 ? name : name.substr(0, point);
    std::ranges::replace(name, '"', '\'');
    return MakePrintable(name);
}

void Append(std::vector<TableFinding>& target, const std::vector<TableFinding>& more)
{
    target.insert(target.end(), more.begin(), more.end());
}

class CTablesReader
{
public:
    explicit CTablesReader(const ImportOptions& importOptions) : options(importOptions) {}

    void Read(const TableSource& source)
    {
        const std::size_t index = result.tables.size();
        paths.push_back(source.path);
        lines.emplace_back(source.text);
        UnderstoodTable& table = result.tables.emplace_back();
        const auto rows = CutTable(index, source.text, table);
        if (!rows || !UnderstandColumns(index, rows->front(), table))
        {
            return;
        }
        CTableReader reader(index, table, options, NameAfter(source.path), collector);
        reader.Read(*rows);
        Append(result.errors, reader.GetErrors());
        Append(result.remarks, reader.GetRemarks());
    }

    ImportedTables Finish()
    {
        auto materials = collector.Finish(kind.value_or(MLMATERIAL_DIELECTRIC), paths, lines);
        Append(result.errors, collector.GetErrors());
        Append(result.remarks, collector.GetRemarks());
        const auto place = [](const TableFinding& each)
        { return std::pair(each.table, each.finding.where.offset); };
        std::ranges::stable_sort(result.errors, {}, place);
        std::ranges::stable_sort(result.remarks, {}, place);
        if (result.errors.empty())
        {
            result.problem = DescribeStrangers();
            result.materials = std::move(materials);
        }
        return std::move(result);
    }

private:
    void Refuse(std::size_t index, Span where, std::string text)
    {
        result.errors.push_back({index, Finding{true, where, {}, std::move(text)}});
    }

    std::optional<std::vector<CsvRow>> CutTable(std::size_t index, std::string_view text,
                                                UnderstoodTable& table)
    {
        if (const auto foreign = FindForeignEncoding(text))
        {
            result.errors.push_back({index, *foreign});
            return std::nullopt;
        }
        const SeparatorAnswer found =
            options.separator ? SeparatorAnswer{*options.separator, {}} : FindSeparator(text);
        CsvText cut;
        if (!found.problem)
        {
            table.separator = found.separator;
            cut = CutIntoCells(text, found.separator);
        }
        const auto& problem = found.problem ? found.problem : cut.problem;
        if (problem)
        {
            result.errors.push_back({index, *problem});
            return std::nullopt;
        }
        if (cut.rows.empty())
        {
            Refuse(index, {CountMark(text), 1},
                   "The table has separators and quotes, but nothing in its cells.");
            return std::nullopt;
        }
        return std::move(cut.rows);
    }

    bool UnderstandColumns(std::size_t index, const CsvRow& heads, UnderstoodTable& table)
    {
        std::ranges::transform(heads, std::inserter(knownHeads, knownHeads.end()),
                               [](const CsvCell& head) { return NormaliseHead(head.text); });
        Columns understood = UnderstandHeads(heads, options);
        for (Finding& problem : understood.problems)
        {
            result.errors.push_back({index, std::move(problem)});
        }
        table.columns = std::move(understood.columns);
        table.ignored = std::move(understood.ignored);
        if (!understood.problems.empty())
        {
            return false;
        }
        const auto typical = std::ranges::find_if(table.columns, [](const Column& each)
                                                  { return each.traits->kind.has_value(); });
        if (typical == table.columns.end())
        {
            Refuse(index, heads.front().where,
                   "No column says anything of a dielectric or a metal, such as Er, loss tangent, thickness, "
                   "resistivity or roughness.");
            return false;
        }
        kind = kind ? kind : typical->traits->kind;
        if (kind != typical->traits->kind)
        {
            Refuse(index, typical->head.where,
                   "This table is of another kind of material than the one before. A material file holds "
                   "dielectrics "
                   "or metals, not both.");
            return false;
        }
        return true;
    }

    [[nodiscard]] std::string DescribeStrangers() const
    {
        const auto check = [this](const char* option, const std::string& head)
        {
            return knownHeads.contains(NormaliseHead(head))
                       ? ""
                       : std::string(option) + ": no table has the head " + Quote(head);
        };
        std::string text;
        for (const MappedHead& map : options.maps)
        {
            text = text.empty() ? check("--map", map.head) : text;
        }
        for (const StatedUnit& unit : options.units)
        {
            text = text.empty() ? check("--unit", unit.head) : text;
        }
        for (const std::string& head : options.ignoredHeads)
        {
            text = text.empty() ? check("--ignore", head) : text;
        }
        return text;
    }

    const ImportOptions& options;
    ImportedTables result;
    CMaterialCollector collector;
    std::vector<std::string> paths;
    std::vector<CSourceLines> lines;
    std::set<std::string> knownHeads;
    std::optional<MLMATERIALKIND> kind;
};
} // namespace

ImportedTables ImportTables(std::span<const TableSource> sources, const ImportOptions& options)
{
    CTablesReader reader(options);
    for (const TableSource& source : sources)
    {
        reader.Read(source);
    }
    return reader.Finish();
}
