#include "tools/matlib/import/CTableReader.h"

#include "tools/matlib/NearestNames.h"
#include "tools/matlib/Wording.h"

#include <algorithm>

namespace
{
// Why no material has such a value; empty where it may have.
std::string DescribeBadValue(Property property, double value)
{
    constexpr double absoluteZero = -273.15;
    switch (property)
    {
    case Property::frequency:
        return value > 0.0 ? "" : "A frequency is above 0.";
    case Property::er:
        return value >= 1.0 ? "" : "An Er is at least 1, which is that of vacuum.";
    case Property::lossTangent:
        return value >= 0.0 ? "" : "A loss tangent is not negative.";
    case Property::temperature:
        return value >= absoluteZero ? "" : "This temperature is below absolute zero.";
    case Property::thickness:
        return value > 0.0 ? "" : "A thickness is above 0.";
    case Property::resistivity:
        return value > 0.0 ? "" : "A resistivity is above 0.";
    case Property::roughTop:
    case Property::roughBottom:
        return value >= 1.0
                   ? ""
                   : "A roughness factor is at least 1, that of a smooth face: it is the ratio of the two "
                     "conductor losses, no height.";
    default:
        return {};
    }
}
} // namespace

CTableReader::CTableReader(std::size_t tableIndex, UnderstoodTable& understood,
                           const ImportOptions& importOptions, std::string fileName,
                           CMaterialCollector& materialCollector)
    : index(tableIndex), table(understood), options(importOptions), defaultName(std::move(fileName)),
      collector(materialCollector)
{
}

void CTableReader::Read(const std::vector<CsvRow>& rows)
{
    const CsvRow& heads = rows.front();
    if (rows.size() == 1)
    {
        Refuse(heads.front().where, "The table has a line of heads and no rows.");
        return;
    }
    for (const CsvCell& head : heads)
    {
        hasHead.push_back(!head.text.empty());
    }
    RemarkDefaults(heads.front());
    for (const CsvRow& row : std::span(rows).subspan(1))
    {
        ReadRow(row, heads.size());
    }
    table.rows = rows.size() - 1;
    for (std::size_t i = 0; i < table.columns.size(); ++i)
    {
        table.unitsInCells.push_back(columnsWithUnits.contains(i));
    }
}

void CTableReader::RemarkDefaults(const CsvCell& firstHead)
{
    const auto has = [&](auto condition) { return std::ranges::any_of(table.columns, condition); };
    const bool hasTables = has([](const Column& each) { return each.traits->table.has_value(); });
    if (!FindColumn(Property::name))
    {
        Remark(firstHead.where,
               "No column gives names. The material is named " + Quote(defaultName) + ", as the file is.");
    }
    if (hasTables && !FindColumn(Property::frequency) &&
        !has([](const Column& each) { return each.frequency.has_value(); }))
    {
        Remark(firstHead.where, "No column gives frequencies. Each value is taken for all of them.");
    }
    const bool isOfLaminates =
        has([](const Column& each) { return each.traits->kind == MLMATERIAL_DIELECTRIC; });
    if (hasTables && isOfLaminates && !FindColumn(Property::temperature))
    {
        Remark(firstHead.where, "No column gives a temperature. 25 C is taken.");
    }
}

void CTableReader::ReadRow(const CsvRow& row, std::size_t headCount)
{
    if (!HasShape(row, headCount))
    {
        return;
    }
    RowContext context = ReadContext(row);
    for (std::size_t i = 0; i < table.columns.size() && context.isGood; ++i)
    {
        const CsvCell& cell = row[table.columns[i].index];
        if (!IsEmpty(cell))
        {
            ReadFact(context, i, cell);
        }
    }
    CheckCompleteness(context, row);
}

bool CTableReader::HasShape(const CsvRow& row, std::size_t headCount)
{
    if (row.size() < headCount)
    {
        Refuse({row.back().where.offset + row.back().where.length, 1},
               "This row has " + std::to_string(row.size()) + " of " + std::to_string(headCount) +
                   " cells. Write a separator for each empty one.");
        return false;
    }
    for (std::size_t i = 0; i < headCount; ++i)
    {
        if (!hasHead[i] && !row[i].text.empty())
        {
            Refuse(row[i].where, "The column of this cell has no head.");
            return false;
        }
    }
    const auto surplus = std::find_if(row.begin() + static_cast<std::ptrdiff_t>(headCount), row.end(),
                                      [](const CsvCell& cell) { return !cell.text.empty(); });
    if (surplus != row.end())
    {
        const bool isPerhapsDecimal = table.separator == ',';
        Refuse(surplus->where,
               "This row has more cells than the head line, which has " + std::to_string(headCount) + "." +
                   (isPerhapsDecimal ? " A text with a comma in it stands in double quotes, and so "
                                       "does a number with a decimal comma."
                                     : ""));
        return false;
    }
    return true;
}

CTableReader::RowContext CTableReader::ReadContext(const CsvRow& row)
{
    RowContext context;
    std::string name = defaultName;
    if (const auto column = FindColumn(Property::name))
    {
        const CsvCell& cell = row[table.columns[*column].index];
        const auto text = IsEmpty(cell) ? std::nullopt : ReadText(cell);
        context.isGood = text.has_value();
        name = text.value_or("");
        if (IsEmpty(cell))
        {
            Refuse(cell.where, "This row has no name. Repeat the name in each row of a material.");
        }
    }
    const auto read = [&](Property property, std::optional<double>& target)
    {
        const auto column = FindColumn(property);
        const CsvCell* const cell = column ? &row[table.columns[*column].index] : nullptr;
        if (cell != nullptr && !IsEmpty(*cell))
        {
            target = ReadNumber(*column, *cell);
            context.isGood = context.isGood && target;
        }
    };
    read(Property::frequency, context.frequency);
    read(Property::temperature, context.temperature);
    if (context.isGood)
    {
        context.material = collector.FindMaterial(name);
    }
    return context;
}

void CTableReader::ReadFact(RowContext& context, std::size_t columnIndex, const CsvCell& cell)
{
    const Column& column = table.columns[columnIndex];
    const Property property = column.traits->property;
    bool isAgreed = true;
    if (property == Property::technology)
    {
        ReadTechnology(context, cell);
    }
    else if (property == Property::thickness || property == Property::resistivity)
    {
        const auto number = ReadNumber(columnIndex, cell);
        isAgreed = !number || collector.SetNumber(context.material, property, *number);
    }
    else if (column.traits->table)
    {
        context.hasValue = true;
        const auto number = ReadNumber(columnIndex, cell);
        const auto frequency = column.frequency ? column.frequency : context.frequency;
        if (number && (frequency || !FindColumn(Property::frequency)))
        {
            collector.Add(
                context.material,
                {*column.traits->table, context.temperature, frequency, *number, {index, cell.where}});
        }
    }
    else if (column.traits->dimension == Dimension::text && property != Property::name)
    {
        const auto text = ReadText(cell);
        isAgreed = !text || collector.SetText(context.material, property, *text);
    }
    if (!isAgreed)
    {
        Refuse(cell.where, Quote(cell.text) + " differs from the " + std::string(column.traits->word) +
                               " that a row before gives for this material.");
    }
}

void CTableReader::ReadTechnology(RowContext& context, const CsvCell& cell)
{
    for (const MLTECHNOLOGY technology : {MLTECHNOLOGY_CORE, MLTECHNOLOGY_PREPREG, MLTECHNOLOGY_FLEXCORE})
    {
        if (!EqualIgnoringCase(TechnologyWord(technology), cell.text))
        {
            continue;
        }
        if (!collector.SetTechnology(context.material, technology))
        {
            Refuse(cell.where, Quote(cell.text) +
                                   " differs from the technology that a row before gives for this material.");
        }
        return;
    }
    Refuse(cell.where, Quote(cell.text) + " is no technology. There are Core, Prepreg and Flexcore.");
}

void CTableReader::CheckCompleteness(const RowContext& context, const CsvRow& row)
{
    const auto frequency = FindColumn(Property::frequency);
    const auto temperature = FindColumn(Property::temperature);
    if (context.isGood && frequency && context.hasValue != context.frequency.has_value())
    {
        Refuse(row[table.columns[*frequency].index].where,
               context.hasValue ? "This row has values, but no frequency." : "This frequency has no values.");
    }
    if (context.isGood && temperature && context.hasValue && !context.temperature)
    {
        Refuse(row[table.columns[*temperature].index].where,
               "This row has no temperature. Repeat it in each row.");
    }
}

std::optional<std::size_t> CTableReader::FindColumn(Property property) const
{
    const auto found = std::ranges::find_if(table.columns, [&](const Column& each)
                                            { return each.traits->property == property; });
    return found == table.columns.end()
               ? std::nullopt
               : std::optional(static_cast<std::size_t>(found - table.columns.begin()));
}

bool CTableReader::IsEmpty(const CsvCell& cell) const
{
    return cell.text.empty() || std::ranges::find(options.emptyMarks, cell.text) != options.emptyMarks.end();
}

std::optional<double> CTableReader::ReadNumber(std::size_t columnIndex, const CsvCell& cell)
{
    const Column& column = table.columns[columnIndex];
    const CellNumber number =
        ParseCellNumber(cell.text, options.decimalSign, column.traits->dimension, column.unit);
    const std::string problem =
        !number.problem.empty() ? number.problem : DescribeBadValue(column.traits->property, number.value);
    if (!problem.empty())
    {
        Refuse(cell.where, problem);
        return std::nullopt;
    }
    return HasUnit(columnIndex, cell, number) ? std::optional(number.value) : std::nullopt;
}

bool CTableReader::HasUnit(std::size_t columnIndex, const CsvCell& cell, const CellNumber& number)
{
    const Column& column = table.columns[columnIndex];
    if (number.unit != nullptr)
    {
        columnsWithUnits.insert(columnIndex);
    }
    if (number.unit != nullptr || column.unit != nullptr || !NeedsUnit(column.traits->dimension))
    {
        return true;
    }
    const std::string units = ListUnits(column.traits->dimension);
    if (columnsWithUnits.contains(columnIndex))
    {
        Refuse(cell.where, Quote(cell.text) + " has no unit, unlike cells above. Write " + units + ".");
    }
    else if (columnsWithoutUnit.insert(columnIndex).second)
    {
        const std::string head = MakePrintable(JoinLines(column.head.text));
        const std::string example(FindUnitNames(column.traits->dimension).front());
        Refuse(column.head.where, "The numbers of this column have no unit. State it in the head, " +
                                      Quote(head + " (" + example + ")") +
                                      ", in each cell, or with --unit \"" + head + "=" + example +
                                      "\". The units are " + units + ".");
    }
    return false;
}

std::optional<std::string> CTableReader::ReadText(const CsvCell& cell)
{
    if (cell.text.find('"') != std::string::npos)
    {
        Refuse(cell.where,
               "A text of a material file cannot hold a double quote. For inches write in or inch.");
        return std::nullopt;
    }
    if (LooksLikeNoValue(cell.text))
    {
        Refuse(cell.where, Quote(cell.text) + " is no text. If it says that there is none, say so: --empty " +
                               Quote(cell.text) + ".");
        return std::nullopt;
    }
    if (cell.text.find_first_of("\r\n") == std::string::npos)
    {
        return cell.text;
    }
    if (!hasJoinedLines)
    {
        Remark(cell.where, "The text of this cell has several lines. The file has it on one.");
        hasJoinedLines = true;
    }
    return JoinLines(cell.text);
}

void CTableReader::Refuse(Span where, std::string text)
{
    errors.push_back({index, Finding{true, where, {}, std::move(text)}});
}

void CTableReader::Remark(Span where, std::string text)
{
    remarks.push_back({index, Finding{false, where, {}, std::move(text)}});
}
