#include "tools/matlib/check/FindWarnings.h"

#include "model/CFakeMaterialLib.h"
#include "tools/matlib/Wording.h"
#include "tools/matlib/check/CMaterialChecks.h"
#include "tools/matlib/check/CWarnings.h"
#include "tools/matlib/check/CodePage.h"
#include "tools/matlib/check/MaterialWarnings.h"
#include "tools/matlib/check/Rules.h"

#include <algorithm>

namespace
{
constexpr double farRatio = 8.0;
constexpr std::size_t enoughThicknesses = 4;

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

CheckedFile FindWarnings(const std::string& paddedText, AfterError afterError, std::span<CFitCheck> fits)
{
    CFakeMaterialLib library; // outlives the threads that look at its rows, also where reading throws
    CMaterialChecks checks(paddedText, fits);
    ParsedFile file = ParseMaterialFile(paddedText, afterError, library,
                                        [&checks](const ParsedMaterial& material, const ParsedTables& tables)
                                        { checks.Add(material, tables); });
    CWarnings warnings(paddedText);
    warnings.findings = checks.Finish();
    CheckTexts(warnings, file.texts);
    CheckThicknesses(warnings, file.materials);
    std::ranges::stable_sort(warnings.findings, {}, &Finding::where);
    return {std::move(file), std::move(warnings.findings)};
}
