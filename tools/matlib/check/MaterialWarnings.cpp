#include "tools/matlib/check/MaterialWarnings.h"

#include "tools/matlib/Wording.h"
#include "tools/matlib/check/CWarnings.h"
#include "tools/matlib/check/Rules.h"

#include <algorithm>
#include <array>

namespace
{
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
} // namespace

void CheckMaterial(CWarnings& warnings, const ParsedMaterial& material, const ParsedTables& tables,
                   CFitCheck& fits)
{
    if (material.name.empty())
    {
        warnings.Add(material.block, rule::nameMissing, "The material has no NAME. A host cannot find it.");
    }
    CheckThickness(warnings, material);
    CheckTechnology(warnings, material.technology);
    for (const ParsedTable& table : tables.tables)
    {
        CheckRows(warnings, table);
    }
    if (material.kind == MLMATERIAL_DIELECTRIC)
    {
        CheckFits(warnings, tables, fits);
    }
}
