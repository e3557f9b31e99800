#include "tools/matlib/import/ColumnHeads.h"

#include "tools/matlib/NearestNames.h"
#include "tools/matlib/QuantityParsing.h"
#include "tools/matlib/Wording.h"

#include <algorithm>

namespace
{
std::string_view Trim(std::string_view text)
{
    constexpr std::string_view blanks = " \t\r\n";
    const std::size_t first = std::min(text.find_first_not_of(blanks), text.size());
    text.remove_prefix(first);
    return text.substr(0, text.find_last_not_of(blanks) + 1);
}

// "Thickness (mm)": the name and what stands behind it.
struct SplitHead
{
    std::string_view name;
    std::string_view unit;
};

std::optional<SplitHead> SplitAtBracket(std::string_view head)
{
    const char open = head.ends_with(')') ? '(' : head.ends_with(']') ? '[' : '\0';
    const std::size_t at = open == '\0' ? std::string_view::npos : head.rfind(open);
    if (at == std::string_view::npos)
    {
        return std::nullopt;
    }
    return SplitHead{Trim(head.substr(0, at)), Trim(head.substr(at + 1, head.size() - at - 2))};
}

// "Freq GHz", "f/GHz", "freq_GHz", "Thickness, mm", "bulk resistivity ohm m": the longest name that is known.
std::optional<SplitHead> SplitAtName(std::string_view head)
{
    constexpr std::string_view dividers = " \t\r\n/,_";
    constexpr std::size_t longest = 80; // of a head with a unit in it
    if (head.size() > longest)
    {
        return std::nullopt;
    }
    for (std::size_t at = head.find_last_of(dividers); at != std::string_view::npos && at > 0;
         at = head.find_last_of(dividers, at - 1))
    {
        if (FindProperty(head.substr(0, at)) != nullptr)
        {
            return SplitHead{Trim(head.substr(0, at)), Trim(head.substr(at + 1))};
        }
    }
    return std::nullopt;
}

std::optional<SplitHead> Split(std::string_view head)
{
    const auto bracketed = SplitAtBracket(head);
    return bracketed ? bracketed : SplitAtName(head);
}

// The head as a message shows it.
std::string Show(std::string_view head)
{
    return MakePrintable(JoinLines(head));
}

// What --map would say where a frequency stands behind the name: "@ 10 GHz", "at 10GHz", "10 GHz".
std::string SuggestFrequency(const Column& column, std::string_view behind)
{
    behind.remove_prefix(behind.starts_with('@') ? 1 : behind.starts_with("at ") ? 3 : 0);
    std::string frequency(behind);
    std::erase(frequency, ' ');
    const bool isFrequency = column.traits->table && ParseFrequency(frequency).problem.empty();
    return isFrequency
               ? Quote(Show(column.head.text)) +
                     " has a frequency behind its name. If the values of the column "
                     "were measured there, say so: --map \"" +
                     Show(column.head.text) + "=" + std::string(column.traits->word) + "@" + frequency + "\"."
               : "";
}

std::string DescribeUnknown(std::string_view head, bool isBrief)
{
    constexpr std::size_t longest = 24; // that may be a misspelt word
    const auto nearest = isBrief || head.size() > longest
                             ? std::vector<std::string>()
                             : FindNearestNames(NormaliseHead(head), ListHeads());
    return Quote(Show(head)) + " is no head that is known here" +
           (nearest.empty() ? ". " : "; did you mean " + Quote(nearest.front()) + "? ") +
           "Say what it is with --map \"" + Show(head) + "=PROPERTY\", or leave it out with --ignore \"" +
           Show(head) + "\"." + (isBrief ? "" : " The properties are " + ListPropertyWords() + ".");
}

std::string DescribeBadUnit(const Column& column, std::string_view unit)
{
    const std::string units = ListUnits(column.traits->dimension);
    const bool isHeight = column.traits->dimension == Dimension::number &&
                          column.traits->kind == MLMATERIAL_METAL &&
                          FindUnit(Dimension::length, unit) != nullptr;
    if (isHeight)
    {
        return "A material file has no heights of roughness. It has factors: the conductor loss with the "
               "rough face, "
               "divided by that with a smooth one.";
    }
    if (const std::string suggestion = SuggestFrequency(column, unit); !suggestion.empty())
    {
        return suggestion;
    }
    const std::string problem = Quote(Show(unit)) + " is no unit of " + std::string(column.traits->word);
    if (const CellUnit* const meant = FindUnitInAnyCase(column.traits->dimension, unit))
    {
        return problem + ", since the letter case counts; did you mean " + std::string(meant->name) + "?";
    }
    return problem + (units.empty() ? ", which has none" : "; write " + units) +
           ". If it is no unit, say what the column is: --map \"" + Show(column.head.text) + "=" +
           std::string(column.traits->word) + "\".";
}

std::string_view WithArticle(MLMATERIALKIND kind)
{
    return kind == MLMATERIAL_METAL ? "a metal" : "a dielectric";
}

std::string DescribeConflict(const Column& column, const Column& other)
{
    const auto both = [&] { return Quote(Show(column.head.text)) + " and " + Quote(Show(other.head.text)); };
    const auto saysFrequency = [](const Column& each)
    { return each.frequency || each.traits->property == Property::frequency; };
    if (other.traits == column.traits && other.frequency == column.frequency)
    {
        return both() + " are both " + std::string(column.traits->taken) + ". Leave one out with --ignore.";
    }
    if (other.traits->kind && column.traits->kind && other.traits->kind != column.traits->kind)
    {
        return Quote(Show(column.head.text)) + " belongs to " +
               std::string(WithArticle(*column.traits->kind)) + ", " + Quote(Show(other.head.text)) + " to " +
               std::string(WithArticle(*other.traits->kind)) +
               ". A material file holds one kind: leave columns out with --ignore.";
    }
    if (saysFrequency(column) && saysFrequency(other) && !(column.frequency && other.frequency))
    {
        return both() + " both say at which frequency values were measured.";
    }
    return {};
}

ImportOptions WithNormalHeads(ImportOptions options)
{
    for (MappedHead& map : options.maps)
    {
        map.head = NormaliseHead(map.head);
    }
    for (StatedUnit& stated : options.units)
    {
        stated.head = NormaliseHead(stated.head);
    }
    std::ranges::transform(options.ignoredHeads, options.ignoredHeads.begin(), NormaliseHead);
    return options;
}

class CHeadReader
{
public:
    explicit CHeadReader(const ImportOptions& importOptions) : options(WithNormalHeads(importOptions)) {}

    void Add(std::size_t index, const CsvCell& head)
    {
        if (head.text.empty())
        {
            return;
        }
        const std::string normal = NormaliseHead(head.text);
        if (std::ranges::find(options.ignoredHeads, normal) != options.ignoredHeads.end())
        {
            result.ignored.push_back({index, head.text});
            return;
        }
        Column column{index, head, nullptr, nullptr, {}};
        const auto split = Split(head.text);
        const auto map = std::ranges::find(options.maps, normal, &MappedHead::head);
        if (map != options.maps.end())
        {
            column.traits = &TraitsOf(map->property);
            column.frequency = map->frequency;
            column.unit = split ? FindUnit(column.traits->dimension, split->unit) : nullptr;
        }
        else if (const PropertyTraits* const whole = FindProperty(head.text))
        {
            column.traits = whole;
        }
        else if (split && FindProperty(split->name) != nullptr)
        {
            column.traits = FindProperty(split->name);
            column.unit = FindUnit(column.traits->dimension, split->unit);
            if (column.unit == nullptr)
            {
                Refuse(head, DescribeBadUnit(column, split->unit));
                return;
            }
        }
        else
        {
            Refuse(head, DescribeUnknown(head.text, hasExplained));
            hasExplained = true;
            return;
        }
        TakeStatedUnit(column, normal);
        if (IsBesideOthers(column))
        {
            result.columns.push_back(std::move(column));
        }
    }

    Columns Finish() { return std::move(result); }

private:
    void Refuse(const CsvCell& head, std::string text)
    {
        result.problems.push_back(Finding{true, head.where, {}, std::move(text)});
    }

    void TakeStatedUnit(Column& column, const std::string& normalHead)
    {
        const auto stated = std::ranges::find(options.units, normalHead, &StatedUnit::head);
        if (stated == options.units.end())
        {
            return;
        }
        const CellUnit* const unit = FindUnit(column.traits->dimension, stated->unit);
        if (unit == nullptr)
        {
            Refuse(column.head, DescribeBadUnit(column, stated->unit));
        }
        else if (column.unit != nullptr && column.unit->name != unit->name)
        {
            Refuse(column.head, "The head says " + std::string(column.unit->name) + ", but --unit says " +
                                    std::string(unit->name) + ".");
        }
        column.unit = unit;
    }

    // Whether the column and those before it can stand in one table.
    bool IsBesideOthers(const Column& column)
    {
        for (const Column& other : result.columns)
        {
            const std::string problem = DescribeConflict(column, other);
            if (!problem.empty())
            {
                Refuse(column.head, problem);
                return false;
            }
        }
        return true;
    }

    const ImportOptions options; // their heads normalised
    Columns result;
    bool hasExplained = false; // what an unknown head needs, once for a table
};
} // namespace

Columns UnderstandHeads(const CsvRow& heads, const ImportOptions& options)
{
    CHeadReader reader(options);
    for (std::size_t i = 0; i < heads.size(); ++i)
    {
        reader.Add(i, heads[i]);
    }
    return reader.Finish();
}

MapTarget ParseMapTarget(std::string_view text)
{
    const std::size_t at = text.find('@');
    const PropertyTraits* const traits = FindProperty(text.substr(0, at));
    if (traits == nullptr)
    {
        return {nullptr, {}, Quote(text.substr(0, at)) + " is no property; use " + ListPropertyWords()};
    }
    if (at == std::string_view::npos)
    {
        return {traits, {}, {}};
    }
    if (!traits->table)
    {
        return {nullptr, {}, std::string(traits->word) + " does not depend on frequency"};
    }
    const Quantity frequency = ParseFrequency(Trim(text.substr(at + 1)));
    return {traits, frequency.value, frequency.problem};
}
