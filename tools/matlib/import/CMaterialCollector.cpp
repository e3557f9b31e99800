#include "tools/matlib/import/CMaterialCollector.h"

#include "tools/matlib/Wording.h"
#include "tools/matlib/import/DescribeBasis.h"

#include <algorithm>
#include <set>

namespace
{
constexpr double assumedTemperature = 25.0; // °C, the library's
constexpr double constantFrequency = 1e9;   // Hz, of the only row of a constant

std::string NameOfFile(const std::string& path)
{
    return MakePrintable(std::string_view(path).substr(path.find_last_of("/\\") + 1));
}

// Keeps the first value.
template <class Value>
bool Set(Value& target, bool isSet, const Value& value)
{
    if (!isSet)
    {
        target = value;
    }
    return !isSet || target == value;
}

// Of one property at one temperature.
struct ValueGroup
{
    std::vector<CollectedValue> values;
    bool hasTemperature = true;
};
using ValueGroups = std::map<std::pair<double, MLTABLEKIND>, ValueGroup>;

ValueGroups GroupValues(const std::vector<CollectedValue>& values)
{
    ValueGroups groups;
    for (const CollectedValue& value : values)
    {
        ValueGroup& group = groups[{value.temperature.value_or(assumedTemperature), value.kind}];
        group.values.push_back(value);
        group.hasTemperature = group.hasTemperature && value.temperature.has_value();
    }
    return groups;
}

double FrequencyOf(const CollectedValue& value)
{
    return value.frequency.value_or(constantFrequency);
}

// Brings one material into the form in which it is written.
class CMaterialFinisher
{
public:
    CMaterialFinisher(MaterialDescription& target, const std::vector<std::string>& tablePaths,
                      const std::vector<CSourceLines>& tableLines, std::vector<TableFinding>& errorList,
                      std::vector<TableFinding>& remarkList)
        : material(target), paths(tablePaths), lines(tableLines), errors(errorList), remarks(remarkList)
    {
    }

    void Finish(const std::vector<CollectedValue>& values)
    {
        DescribeSource(values);
        ValueGroups groups = GroupValues(values);
        for (auto group = groups.begin(); group != groups.end();)
        {
            const double temperature = group->first.first;
            const bool hasTemperature = group->second.hasTemperature;
            std::vector<MeasuredTable> measured;
            for (; group != groups.end() && group->first.first == temperature; ++group)
            {
                measured.push_back(AddTable(group->first.second, temperature, group->second.values));
            }
            const std::string text = hasTemperature ? "At " + FormatNumber(temperature) + " C" : "";
            std::ranges::move(DescribeBasis(measured, text), std::back_inserter(material.remarks));
        }
    }

private:
    MeasuredTable AddTable(MLTABLEKIND kind, double temperature, std::vector<CollectedValue>& values)
    {
        RemarkOrder(values);
        std::ranges::stable_sort(values, {}, FrequencyOf);
        RefuseRepetitions(values);
        TableDescription table{kind, temperature, {}};
        MeasuredTable measured{kind, !values.front().frequency, {}};
        for (const CollectedValue& value : values)
        {
            table.rows.push_back({FrequencyOf(value), value.value});
            measured.frequencies.push_back(FrequencyOf(value));
        }
        material.tables.push_back(std::move(table));
        return measured;
    }

    // One remark for each material.
    void RemarkOrder(const std::vector<CollectedValue>& values)
    {
        const auto descent = std::ranges::adjacent_find(values, std::ranges::greater(), FrequencyOf);
        if (descent != values.end() && !isSorted)
        {
            isSorted = true;
            const CellPlace& place = std::next(descent)->place;
            remarks.push_back(
                {place.table, Finding{false,
                                      place.where,
                                      {},
                                      "The frequencies of " + Quote(material.name) +
                                          " are not ascending here. The file has them in order."}});
        }
    }

    void RefuseRepetitions(const std::vector<CollectedValue>& values)
    {
        for (std::size_t i = 1; i < values.size(); ++i)
        {
            const CollectedValue& value = values[i];
            const CollectedValue& before = values[i - 1];
            if (value.frequency && before.frequency && value.frequency != before.frequency)
            {
                continue;
            }
            const std::string at = value.frequency ? " at " + FormatFrequency(*value.frequency) : "";
            const std::string file =
                value.place.table == before.place.table ? "" : NameOfFile(paths[before.place.table]) + ", ";
            errors.push_back({value.place.table, Finding{true,
                                                         value.place.where,
                                                         {},
                                                         Quote(material.name) + " has the " +
                                                             std::string(WordsOf(value.kind).sentence) + at +
                                                             " twice; the other is in " + file + "line " +
                                                             std::to_string(LineOf(before.place)) + "."}});
        }
    }

    [[nodiscard]] unsigned LineOf(const CellPlace& place) const
    {
        return lines[place.table].PlaceOf(place.where.offset).line;
    }

    void DescribeSource(const std::vector<CollectedValue>& values)
    {
        std::map<std::size_t, std::pair<unsigned, unsigned>> rows; // first and last line, by table
        for (const CollectedValue& value : values)
        {
            const unsigned line = LineOf(value.place);
            const auto [found, isNew] = rows.emplace(value.place.table, std::pair{line, line});
            found->second.first = std::min(found->second.first, line);
            found->second.second = std::max(found->second.second, line);
        }
        for (const auto& [table, span] : rows)
        {
            const auto& [first, last] = span;
            material.remarks.push_back(
                "From " + NameOfFile(paths[table]) +
                (first == last ? ", line " + std::to_string(first)
                               : ", lines " + std::to_string(first) + " to " + std::to_string(last)) +
                ".");
        }
    }

    MaterialDescription& material;
    const std::vector<std::string>& paths;
    const std::vector<CSourceLines>& lines;
    std::vector<TableFinding>& errors;
    std::vector<TableFinding>& remarks;
    bool isSorted = false;
};
} // namespace

std::size_t CMaterialCollector::FindMaterial(const std::string& name)
{
    const auto [found, isNew] = indices.emplace(name, materials.size());
    if (isNew)
    {
        materials.emplace_back().description.name = name;
    }
    return found->second;
}

bool CMaterialCollector::SetText(std::size_t material, Property property, const std::string& text)
{
    MaterialDescription& description = materials[material].description;
    std::string& target = property == Property::type     ? description.type
                          : property == Property::vendor ? description.vendor
                                                         : description.comment;
    return Set(target, !target.empty(), text);
}

bool CMaterialCollector::SetTechnology(std::size_t material, MLTECHNOLOGY technology)
{
    MLTECHNOLOGY& target = materials[material].description.technology;
    return Set(target, target != MLTECHNOLOGY_UNKNOWN, technology);
}

bool CMaterialCollector::SetNumber(std::size_t material, Property property, double number)
{
    MaterialDescription& description = materials[material].description;
    auto& target = property == Property::thickness ? description.thickness : description.resistivity;
    return Set(target, target.has_value(), std::optional(number));
}

void CMaterialCollector::Add(std::size_t material, const CollectedValue& value)
{
    materials[material].values.push_back(value);
}

std::vector<MaterialDescription> CMaterialCollector::Finish(MLMATERIALKIND kind,
                                                            const std::vector<std::string>& paths,
                                                            const std::vector<CSourceLines>& lines)
{
    std::vector<MaterialDescription> finished;
    for (Material& material : materials)
    {
        material.description.kind = kind;
        CMaterialFinisher(material.description, paths, lines, errors, remarks).Finish(material.values);
        finished.push_back(std::move(material.description));
    }
    return finished;
}
