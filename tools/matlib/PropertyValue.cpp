#include "tools/matlib/PropertyValue.h"

#include "MaterialLibrary/IMaterial.h"
#include "MaterialLibrary/materials.h"
#include "tools/matlib/CBulkMaterial.h"
#include "tools/matlib/CFailure.h"
#include "tools/matlib/Origin.h"
#include "tools/matlib/Wording.h"

namespace
{
bool BelongsToMetals(MLTABLEKIND property)
{
    return property == MLTABLE_ROUGHNESS_TOP || property == MLTABLE_ROUGHNESS_BOTTOM;
}

} // namespace

void RequireModel(const IMaterial& material, double temperature, std::uint8_t status)
{
    if ((status & ML_STATUS_SOURCE) == ML_NO_FIT)
    {
        throw CFailure("no dielectric model fits the tables of " + Quote(material.GetName()) + " at " +
                       FormatNumber(temperature) +
                       " C: it needs Er above 0 and at least two rows of loss tangent from 10 kHz up, in "
                       "ascending order of frequency and at most 38 decades apart");
    }
}

void ExplainMissingModel(IMaterial& material, double temperature)
{
    const double anywhere = 1.0;
    const auto status =
        CBulkMaterial(material).Ask(MLTABLE_ER, temperature, true, std::span(&anywhere, 1)).status;
    RequireValue(material, MLTABLE_ER, temperature, status.front());
    throw CFailure("Er and loss tangent of " + Quote(material.GetName()) +
                   " are constants; they have no model");
}

void RequireValue(const IMaterial& material, MLTABLEKIND property, double temperature, std::uint8_t status)
{
    RequireModel(material, temperature, status);
    if (!IsValue(status))
    {
        throw CFailure(ExplainMissingValue(material, property));
    }
}

std::string ExplainMissingValue(const IMaterial& material, MLTABLEKIND property)
{
    const std::string name = Quote(material.GetName());
    const std::string sentence(WordsOf(property).sentence);
    if (material.GetKind() == MLMATERIAL_METAL && !BelongsToMetals(property))
    {
        return name + " is a metal and has no " + sentence + "; ask for roughtop or roughbtm";
    }
    if (material.GetKind() == MLMATERIAL_DIELECTRIC && BelongsToMetals(property))
    {
        return name + " is a dielectric and has no " + sentence + "; ask for er or losstangent";
    }
    if (BelongsToMetals(property))
    {
        return name + " has no rows of " + sentence;
    }
    return name + " lacks rows of Er or of loss tangent; values between the rows need both";
}
