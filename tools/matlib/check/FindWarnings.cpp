#include "tools/matlib/check/FindWarnings.h"

#include "shared/Misc_String/Decimal.h"
#include "tools/matlib/NearestNames.h"
#include "tools/matlib/Wording.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <map>

namespace
{
constexpr double leastEr = 1.0;
constexpr double mostEr = 50.0;
constexpr double mostLossTangent = 0.2;
constexpr double mostThickness = 0.01;    // metres; the chooser's range before the user changes it
constexpr double leastFitFrequency = 1e4; // Hz; losses below do not enter the model
constexpr double sameTemperature = 0.1;   // °C; nearer tables belong together
const std::array<std::string_view, 3> technologyWords = {TechnologyWord(MLTECHNOLOGY_CORE),
                                                         TechnologyWord(MLTECHNOLOGY_PREPREG),
                                                         TechnologyWord(MLTECHNOLOGY_FLEXCORE)};

using Findings = std::vector<Finding>;

void Warn(Findings& findings, Place place, std::string_view rule, std::string text)
{
    findings.push_back({false, place, rule, std::move(text)});
}

std::string_view KeyOf(const ParsedTable& table)
{
    constexpr std::array<std::string_view, 4> keys = {"ER", "LOSSTANGENT", "ROUGHTOP", "ROUGHBTM"};
    return keys.at(static_cast<std::size_t>(table.kind));
}

// Whether the unit is read as it looks: "1ghz" is 1 Hz to the reader and "5m" 5 mHz, while "1GHZ" is 1 GHz.
bool HasPlainUnit(std::string_view frequency)
{
    const DecimalResult number = ParseDecimal(frequency);
    std::string_view unit = frequency;
    unit.remove_prefix(static_cast<std::size_t>(number.stop - frequency.data()));
    if (!unit.empty() && std::string_view("TGMKk").find(unit.front()) != std::string_view::npos)
    {
        unit.remove_prefix(1);
    }
    return number.verdict != DecimalVerdict::None && (unit.empty() || EqualIgnoringCase(unit, "Hz"));
}

void CheckFrequencies(Findings& findings, const ParsedTable& table)
{
    const auto& rows = table.rows;
    const auto odd =
        std::ranges::find_if(rows, [](const ParsedRow& row)
                             { return !row.frequencyText.empty() && !HasPlainUnit(row.frequencyText); });
    if (odd != rows.end())
    {
        Warn(findings, odd->place, "frequency-unit",
             Quote(odd->frequencyText) + " is read as " + FormatNumber(odd->frequency) +
                 " Hz. Units are Hz, kHz, MHz, GHz and THz, in this letter case.");
    }
    const auto notPositive =
        std::ranges::find_if(rows, [](const ParsedRow& row) { return !(row.frequency > 0.0); });
    if (notPositive != rows.end())
    {
        Warn(findings, notPositive->place, "frequency-range", "The frequency is not above 0.");
    }
    const auto falls = std::ranges::adjacent_find(rows, [](const ParsedRow& first, const ParsedRow& second)
                                                  { return second.frequency < first.frequency; });
    if (falls != rows.end())
    {
        Warn(findings, falls[1].place, "frequency-order",
             FormatFrequency(falls[1].frequency) + " stands behind " + FormatFrequency(falls[0].frequency) +
                 ". The model expects ascending frequencies.");
    }
    std::map<double, Place> seen;
    for (const ParsedRow& row : rows)
    {
        const auto [first, isNew] = seen.emplace(row.frequency, row.place);
        if (!isNew)
        {
            Warn(findings, row.place, "frequency-repeated",
                 FormatFrequency(row.frequency) + " stands in line " + std::to_string(first->second.line) +
                     " already. The value given last is the one that counts.");
            break;
        }
    }
}

void CheckEr(Findings& findings, const ParsedTable& table)
{
    const auto odd = std::ranges::find_if(table.rows, [](const ParsedRow& row)
                                          { return !(row.value >= leastEr && row.value <= mostEr); });
    if (odd != table.rows.end())
    {
        Warn(findings, odd->place, "er-range",
             "An Er of " + FormatNumber(odd->value) +
                 (odd->value > mostEr ? " is more than circuit boards are made of."
                                      : " is below 1, which no laminate has."));
    }
    std::vector<const ParsedRow*> ascending;
    std::ranges::transform(table.rows, std::back_inserter(ascending),
                           [](const ParsedRow& row) { return &row; });
    std::ranges::stable_sort(ascending, {}, &ParsedRow::frequency);
    const auto rises =
        std::ranges::adjacent_find(ascending, [](const ParsedRow* low, const ParsedRow* high)
                                   { return low->frequency < high->frequency && low->value < high->value; });
    if (rises != ascending.end())
    {
        const ParsedRow& low = *rises[0];
        const ParsedRow& high = *rises[1];
        Warn(findings, high.place, "er-rising",
             "Er rises from " + FormatNumber(low.value) + " at " + FormatFrequency(low.frequency) + " to " +
                 FormatNumber(high.value) + " at " + FormatFrequency(high.frequency) +
                 ". That of a real laminate falls, and no causal model follows a rise.");
    }
}

void CheckLossTangent(Findings& findings, const ParsedTable& table)
{
    const auto odd = std::ranges::find_if(table.rows, [](const ParsedRow& row)
                                          { return !(row.value >= 0.0 && row.value <= mostLossTangent); });
    if (odd != table.rows.end())
    {
        Warn(findings, odd->place, "loss-tangent-range",
             "A loss tangent of " + FormatNumber(odd->value) +
                 (odd->value < 0.0 ? " is negative: a gain."
                                   : " is more than circuit boards have; 2% is written 0.02."));
    }
}

// The table of that kind which the library takes for the temperature, or null.
const ParsedTable* FindTable(const ParsedMaterial& material, MLTABLEKIND kind, double temperature)
{
    const ParsedTable* nearest = nullptr;
    double distance = sameTemperature;
    for (auto table = material.tables.rbegin(); table != material.tables.rend(); ++table)
    {
        if (table->kind == kind && std::abs(table->temperature - temperature) < distance)
        {
            distance = std::abs(table->temperature - temperature);
            nearest = &*table;
        }
    }
    return nearest;
}

bool HasEnoughForFit(const ParsedTable& lossTangent)
{
    const auto first = std::ranges::find_if(lossTangent.rows, [](const ParsedRow& row)
                                            { return row.frequency >= leastFitFrequency; });
    return std::distance(first, lossTangent.rows.end()) >= 2;
}

// Whether Er and loss tangent of a temperature answer between their rows.
void CheckFit(Findings& findings, const ParsedMaterial& material, const ParsedTable& table)
{
    const bool isEr = table.kind == MLTABLE_ER;
    const ParsedTable* const other =
        FindTable(material, isEr ? MLTABLE_LOSS_TANGENT : MLTABLE_ER, table.temperature);
    if (table.rows.empty())
    {
        Warn(findings, table.place, "no-fit", std::string(KeyOf(table)) + " has neither TABLE nor VALUE.");
    }
    else if (other == nullptr)
    {
        Warn(findings, table.place, "no-fit",
             std::string(KeyOf(table)) + " has no " + (isEr ? "LOSSTANGENT" : "ER") +
                 " of the same temperature, " + FormatNumber(table.temperature) +
                 " C, beside it. Values between the rows need both.");
    }
    else if (!isEr && (table.rows.size() > 1 || other->rows.size() > 1) && !HasEnoughForFit(table))
    {
        Warn(findings, table.place, "no-fit",
             "LOSSTANGENT has fewer than two rows above 10 kHz. No model can be fitted: there are values at "
             "the "
             "rows only.");
    }
}

void CheckTable(Findings& findings, const ParsedMaterial& material, const ParsedTable& table)
{
    CheckFrequencies(findings, table);
    if (table.kind == MLTABLE_ER)
    {
        CheckEr(findings, table);
    }
    else if (table.kind == MLTABLE_LOSS_TANGENT)
    {
        CheckLossTangent(findings, table);
    }
    if (material.kind == MLMATERIAL_DIELECTRIC)
    {
        CheckFit(findings, material, table);
    }
}

void CheckMaterial(Findings& findings, const ParsedMaterial& material)
{
    if (material.name.empty())
    {
        Warn(findings, material.place, "name-missing", "The material has no NAME. A host cannot find it.");
    }
    if (material.thickness &&
        !(material.thickness->value >= 0.0 && material.thickness->value <= mostThickness))
    {
        Warn(findings, material.thickness->place, "thickness",
             "A thickness of " + FormatNumber(material.thickness->value) +
                 " m lies outside the range that the chooser shows at first, 0 to 0.01 m. THICKNESS is in "
                 "metres: "
                 "200e-6 is 0.2 mm.");
    }
    if (material.technology &&
        std::ranges::find(technologyWords, material.technology->text) == technologyWords.end())
    {
        Warn(findings, material.technology->place, "technology",
             Quote(material.technology->text) + " is no technology. " + std::string(technologyWords[0]) +
                 ", " + std::string(technologyWords[1]) + " and " + std::string(technologyWords[2]) +
                 " are.");
    }
    for (const ParsedTable& table : material.tables)
    {
        CheckTable(findings, material, table);
    }
}

void CheckNames(Findings& findings, const std::vector<ParsedMaterial>& materials)
{
    std::map<std::string_view, const ParsedMaterial*> named;
    for (const ParsedMaterial& material : materials)
    {
        const auto [first, isNew] = named.emplace(material.name, &material);
        if (!isNew && !material.name.empty())
        {
            Warn(findings, material.place, "name-repeated",
                 "The name " + Quote(material.name) + " stands in line " +
                     std::to_string(first->second->place.line) +
                     " already. A host that looks for it finds the material given last.");
        }
    }
}
} // namespace

std::vector<Finding> FindWarnings(const ParsedFile& file)
{
    Findings findings;
    for (const Place place : file.textsOverLines)
    {
        Warn(findings, place, "text-over-lines",
             "The text in quotes goes on behind the end of its line; is a quote missing? Line numbers from "
             "here on "
             "do not count its line breaks.");
    }
    for (const ParsedMaterial& material : file.materials)
    {
        CheckMaterial(findings, material);
    }
    CheckNames(findings, file.materials);
    std::ranges::stable_sort(findings, {}, &Finding::place);
    return findings;
}
