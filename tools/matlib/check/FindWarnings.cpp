#include "tools/matlib/check/FindWarnings.h"

#include "tools/matlib/Wording.h"
#include "tools/matlib/check/CWarnings.h"
#include "tools/matlib/check/CodePage.h"
#include "tools/matlib/check/Rules.h"

#include <algorithm>
#include <array>
#include <unordered_map>

namespace
{
constexpr double mostThickness = 0.01;  // metres; the chooser's range before the user changes it
constexpr double leastThickness = 1e-6; // metres
constexpr double farRatio = 8.0;
constexpr std::size_t enoughThicknesses = 4;
const std::array<std::string_view, 3> technologyWords = {TechnologyWord(MLTECHNOLOGY_CORE),
                                                         TechnologyWord(MLTECHNOLOGY_PREPREG),
                                                         TechnologyWord(MLTECHNOLOGY_FLEXCORE)};

void CheckThickness(CWarnings& warnings, const ParsedMaterial& material)
{
    const double thickness = material.thickness.value_or(0.0);
    if (!(thickness >= 0.0 && thickness <= mostThickness))
    {
        warnings.Add(
            material.thicknessKey, rule::thickness,
            "A thickness of " + FormatNumber(thickness) +
                " m lies outside the range that the chooser shows at first, 0 to 0.01 m. THICKNESS is in "
                "metres: 200e-6 is 0.2 mm.");
    }
    else if (thickness > 0.0 && thickness < leastThickness)
    {
        warnings.Add(
            material.thicknessKey, rule::farThickness,
            "A thickness of " + FormatNumber(thickness) +
                " m is less than a thousandth of a millimetre. THICKNESS is in metres: 200e-6 is 0.2 mm.");
    }
}

void CheckTechnology(CWarnings& warnings, std::string_view technology)
{
    if (technology.data() != nullptr &&
        std::ranges::find(technologyWords, technology) == technologyWords.end())
    {
        warnings.Add(technology, rule::technology,
                     Quote(technology) + " is no technology. " + std::string(technologyWords[0]) + ", " +
                         std::string(technologyWords[1]) + " and " + std::string(technologyWords[2]) +
                         " are.");
    }
}

void CheckMaterial(CWarnings& warnings, const ParsedMaterial& material, const ParsedTables& parsed,
                   CFitCheck& fits)
{
    if (material.name.empty())
    {
        warnings.Add(material.block, rule::nameMissing, "The material has no NAME. A host cannot find it.");
    }
    CheckThickness(warnings, material);
    CheckTechnology(warnings, material.technology);
    for (const ParsedTable& table : parsed.tables)
    {
        CheckRows(warnings, table);
    }
    if (material.kind == MLMATERIAL_DIELECTRIC)
    {
        CheckFits(warnings, parsed, fits);
    }
}

void CheckNames(CWarnings& warnings, const std::vector<ParsedMaterial>& materials)
{
    std::unordered_map<std::string_view, std::string_view> named;
    named.reserve(materials.size());
    for (const ParsedMaterial& material : materials)
    {
        const auto [first, isNew] = named.emplace(material.name, material.name);
        if (!isNew && !material.name.empty())
        {
            warnings.Add(
                material.name, rule::duplicateName,
                "The name " + Quote(material.name) +
                    " stands in this file already. A host that looks for it finds the material given last.",
                first->second, "This is the material before.");
        }
    }
}

void CheckTexts(CWarnings& warnings, const std::vector<std::string_view>& texts)
{
    bool isAscii = true;
    for (const std::string_view text : texts)
    {
        const std::size_t lineEnd = text.find_first_of("\r\n");
        if (lineEnd != std::string_view::npos)
        {
            warnings.Add({text.data() - 1, lineEnd + 1}, rule::textOverLines,
                         "The text in quotes goes on behind the end of its line; is a quote missing?");
        }
        const auto odd = std::ranges::find_if(text, [](char c) { return (c & '\x80') != 0; });
        if (odd != text.end() && isAscii)
        {
            isAscii = false;
            const std::string_view character =
                FindCharacter(text.substr(static_cast<std::size_t>(odd - text.begin())));
            warnings.Add(character, rule::nonAscii, DescribeInCodePage(character));
        }
    }
}

// A slip in the exponent leaves a thickness alone, far from all others.
void CheckThicknesses(CWarnings& warnings, const std::vector<ParsedMaterial>& materials)
{
    std::vector<const ParsedMaterial*> thick;
    for (const ParsedMaterial& material : materials)
    {
        const double thickness = material.thickness.value_or(0.0);
        if (thickness >= leastThickness && thickness <= mostThickness)
        {
            thick.push_back(&material);
        }
    }
    if (thick.size() < enoughThicknesses)
    {
        return;
    }
    const auto thicknessOf = [](const ParsedMaterial* material) { return *material->thickness; };
    std::ranges::stable_sort(thick, {}, thicknessOf);
    for (std::size_t i = 0; i < thick.size(); ++i)
    {
        const double own = thicknessOf(thick[i]);
        const double toThinner = i == 0 ? farRatio : own / thicknessOf(thick[i - 1]);
        const double toThicker = i + 1 == thick.size() ? farRatio : thicknessOf(thick[i + 1]) / own;
        if (toThinner >= farRatio && toThicker >= farRatio)
        {
            warnings.Add(
                thick[i]->thicknessKey, rule::farThickness,
                "A thickness of " + FormatNumber(own) + " m is " + FormatNumber(farRatio) +
                    " times away from that of every other material of the file. Is the exponent right?");
        }
    }
}

} // namespace

CheckedFile FindWarnings(const std::string& paddedText, AfterError afterError, CFitCheck& fits)
{
    CWarnings warnings(paddedText);
    ParsedFile file = ParseMaterialFile(paddedText, afterError,
                                        [&](const ParsedMaterial& material, const ParsedTables& parsed)
                                        { CheckMaterial(warnings, material, parsed, fits); });
    CheckTexts(warnings, file.texts);
    CheckThicknesses(warnings, file.materials);
    CheckNames(warnings, file.materials);
    std::ranges::stable_sort(warnings.findings, {}, &Finding::where);
    return {std::move(file), std::move(warnings.findings)};
}
