#include "tools/matlib/import/ImportedProperty.h"

#include "tools/matlib/NearestNames.h"

#include <algorithm>
#include <array>

namespace
{
constexpr auto dielectric = MLMATERIAL_DIELECTRIC;
constexpr auto metal = MLMATERIAL_METAL;

// In the order of the enumeration.
constexpr std::array<PropertyTraits, 13> allTraits = {{
    {Property::frequency, "frequency", "frequency", Dimension::frequency, {}, {}},
    {Property::er, "er", "ER", Dimension::number, MLTABLE_ER, dielectric},
    {Property::lossTangent, "losstangent", "LOSSTANGENT", Dimension::ratio, MLTABLE_LOSS_TANGENT, dielectric},
    {Property::temperature, "temperature", "TEMPERATURE", Dimension::temperature, {}, dielectric},
    {Property::thickness, "thickness", "THICKNESS", Dimension::length, {}, dielectric},
    {Property::resistivity, "resistivity", "RB", Dimension::resistivity, {}, metal},
    {Property::roughTop, "roughtop", "ROUGHTOP", Dimension::number, MLTABLE_ROUGHNESS_TOP, metal},
    {Property::roughBottom, "roughbtm", "ROUGHBTM", Dimension::number, MLTABLE_ROUGHNESS_BOTTOM, metal},
    {Property::name, "name", "NAME", Dimension::text, {}, {}},
    {Property::type, "type", "TYPE", Dimension::text, {}, {}},
    {Property::technology, "technology", "TECHNOLOGY", Dimension::text, {}, dielectric},
    {Property::vendor, "vendor", "VENDOR", Dimension::text, {}, {}},
    {Property::comment, "comment", "COMMENT", Dimension::text, {}, {}},
}};

struct Head
{
    std::string_view text; // normalised
    Property property;
};
constexpr Head heads[] = {
    {"frequency", Property::frequency},
    {"freq", Property::frequency},
    {"f", Property::frequency},
    {"er", Property::er},
    {"dk", Property::er},
    {"epsr", Property::er},
    {"epsilonr", Property::er},
    {"permittivity", Property::er},
    {"relativepermittivity", Property::er},
    {"dielectricconstant", Property::er},
    {"losstangent", Property::lossTangent},
    {"losstan", Property::lossTangent},
    {"df", Property::lossTangent},
    {"tand", Property::lossTangent},
    {"tandelta", Property::lossTangent},
    {"dissipationfactor", Property::lossTangent},
    {"lossfactor", Property::lossTangent},
    {"temperature", Property::temperature},
    {"temp", Property::temperature},
    {"thickness", Property::thickness},
    {"thick", Property::thickness},
    {"resistivity", Property::resistivity},
    {"bulkresistivity", Property::resistivity},
    {"rb", Property::resistivity},
    {"rho", Property::resistivity},
    {"roughtop", Property::roughTop},
    {"toprough", Property::roughTop},
    {"roughnesstop", Property::roughTop},
    {"toproughness", Property::roughTop},
    {"roughnessfactortop", Property::roughTop},
    {"toproughnessfactor", Property::roughTop},
    {"roughbtm", Property::roughBottom},
    {"roughbottom", Property::roughBottom},
    {"bottomrough", Property::roughBottom},
    {"roughnessbtm", Property::roughBottom},
    {"roughnessbottom", Property::roughBottom},
    {"bottomroughness", Property::roughBottom},
    {"roughnessfactorbottom", Property::roughBottom},
    {"bottomroughnessfactor", Property::roughBottom},
    {"name", Property::name},
    {"material", Property::name},
    {"materialname", Property::name},
    {"product", Property::name},
    {"laminate", Property::name},
    {"foil", Property::name},
    {"type", Property::type},
    {"materialtype", Property::type},
    {"technology", Property::technology},
    {"tech", Property::technology},
    {"vendor", Property::vendor},
    {"manufacturer", Property::vendor},
    {"supplier", Property::vendor},
    {"comment", Property::comment},
    {"comments", Property::comment},
    {"remark", Property::comment},
    {"remarks", Property::comment},
    {"note", Property::comment},
    {"notes", Property::comment},
};

struct UnitSpelling
{
    Dimension dimension;
    std::string_view text; // simplified
    CellUnit unit;
};
constexpr CellUnit micrometre = {"um", 1, -6};
constexpr CellUnit mil = {"mil", 254, -7};
constexpr CellUnit inch = {"inch", 254, -4};
constexpr CellUnit celsius = {"C", 1, 0};
constexpr UnitSpelling unitSpellings[] = {
    {Dimension::frequency, "Hz", {"Hz", 1, 0}},
    {Dimension::frequency, "kHz", {"kHz", 1, 3}},
    {Dimension::frequency, "MHz", {"MHz", 1, 6}},
    {Dimension::frequency, "GHz", {"GHz", 1, 9}},
    {Dimension::frequency, "THz", {"THz", 1, 12}},
    {Dimension::temperature, "C", celsius},
    {Dimension::temperature, "degC", celsius},
    {Dimension::temperature, "°C", celsius},
    {Dimension::temperature,
     "\xB0"
     "C",
     celsius}, // the code pages of western Europe
    {Dimension::temperature, "Celsius", celsius},
    {Dimension::length, "m", {"m", 1, 0}},
    {Dimension::length, "cm", {"cm", 1, -2}},
    {Dimension::length, "mm", {"mm", 1, -3}},
    {Dimension::length, "um", micrometre},
    {Dimension::length, "micron", micrometre},
    {Dimension::length, "microns", micrometre},
    {Dimension::length, "mil", mil},
    {Dimension::length, "mils", mil},
    {Dimension::length, "inch", inch},
    {Dimension::length, "inches", inch},
    {Dimension::length, "in", inch},
    {Dimension::resistivity, "ohmm", {"ohm m", 1, 0}},
    {Dimension::resistivity, "ohmcm", {"ohm cm", 1, -2}},
    {Dimension::resistivity, "uohmcm", {"microohm cm", 1, -8}},
    {Dimension::resistivity, "uohmm", {"microohm m", 1, -6}},
    {Dimension::resistivity, "nohmm", {"nanoohm m", 1, -9}},
    {Dimension::ratio, "%", {"%", 1, -2}},
    {Dimension::ratio, "percent", {"%", 1, -2}},
};

struct Replacement
{
    std::string_view from;
    std::string_view to;
};

// What stands for the beginning of the text, which is taken off it.
std::string_view TakeReplaced(std::string_view& text, std::span<const Replacement> replacements)
{
    const auto found = std::ranges::find_if(replacements, [&](const Replacement& each)
                                            { return text.starts_with(each.from); });
    const bool isFound = found != replacements.end();
    const std::string_view replaced = isFound ? found->to : text.substr(0, 1);
    text.remove_prefix(isFound ? found->from.size() : 1);
    return replaced;
}
} // namespace

const PropertyTraits& TraitsOf(Property property)
{
    return allTraits[static_cast<std::size_t>(property)];
}

std::string NormaliseHead(std::string_view head)
{
    constexpr Replacement replacements[] = {
        {" ", ""}, {"\t", ""}, {"\r", ""},      {"\n", ""},        {"_", ""},       {"-", ""},
        {".", ""}, {"ε", "e"}, {"\u03B4", "d"}, {"\u03C1", "rho"}, {"\u1D63", "r"}, {"\u00A0", ""},
    };
    constexpr std::string_view starts = " \t\r\n_-.\xC2\xCE\xCF\xE1"; // of what is replaced
    std::string normal;
    while (!head.empty())
    {
        const char c = head.front();
        if (starts.find(c) != std::string_view::npos)
        {
            normal += TakeReplaced(head, replacements);
            continue;
        }
        normal += c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
        head.remove_prefix(1);
    }
    return normal;
}

const PropertyTraits* FindProperty(std::string_view head)
{
    const auto* const found = std::ranges::find(heads, NormaliseHead(head), &Head::text);
    return found == std::end(heads) ? nullptr : &TraitsOf(found->property);
}

std::vector<std::string> ListHeads()
{
    std::vector<std::string> texts;
    std::ranges::transform(heads, std::back_inserter(texts),
                           [](const Head& head) { return std::string(head.text); });
    return texts;
}

std::string ListPropertyWords()
{
    std::string words;
    for (const PropertyTraits& each : allTraits)
    {
        words += (words.empty() ? "" : ", ") + std::string(each.word);
    }
    return words;
}

const CellUnit* FindUnit(Dimension dimension, std::string_view text)
{
    // Both characters for micro and for ohm that Unicode has, and the one of western code pages.
    constexpr Replacement replacements[] = {
        {" ", ""},      {"\u00A0", ""},    {"*", ""},         {"\u00B7", ""}, {"-", ""},
        {"micro", "u"}, {"\u00B5", "u"},   {"\u03BC", "u"},   {"\xB5", "u"},  {"nano", "n"},
        {"Ohm", "ohm"}, {"\u03A9", "ohm"}, {"\u2126", "ohm"},
    };
    std::string simple;
    while (!text.empty())
    {
        simple += TakeReplaced(text, replacements);
    }
    const auto* const found =
        std::ranges::find_if(unitSpellings, [&](const UnitSpelling& each)
                             { return each.dimension == dimension && each.text == simple; });
    return found == std::end(unitSpellings) ? nullptr : &found->unit;
}

const CellUnit* FindUnitInAnyCase(Dimension dimension, std::string_view text)
{
    const auto* const found =
        std::ranges::find_if(unitSpellings, [&](const UnitSpelling& each)
                             { return each.dimension == dimension && EqualIgnoringCase(each.text, text); });
    return found == std::end(unitSpellings) ? nullptr : &found->unit;
}

bool NeedsUnit(Dimension dimension)
{
    return dimension == Dimension::frequency || dimension == Dimension::temperature ||
           dimension == Dimension::length || dimension == Dimension::resistivity;
}

std::vector<std::string_view> FindUnitNames(Dimension dimension)
{
    std::vector<std::string_view> names;
    for (const UnitSpelling& each : unitSpellings)
    {
        if (each.dimension == dimension && std::ranges::find(names, each.unit.name) == names.end())
        {
            names.push_back(each.unit.name);
        }
    }
    return names;
}

std::string ListUnits(Dimension dimension)
{
    const std::vector<std::string_view> names = FindUnitNames(dimension);
    std::string list;
    for (std::size_t i = 0; i < names.size(); ++i)
    {
        list += (i == 0 ? "" : i + 1 == names.size() ? " or " : ", ") + std::string(names[i]);
    }
    return list;
}
