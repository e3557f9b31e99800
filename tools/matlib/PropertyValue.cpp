#include "tools/matlib/PropertyValue.h"

#include "MaterialLibrary/IMaterial.h"
#include "tools/matlib/CFailure.h"
#include "tools/matlib/Wording.h"

#include <bit>
#include <cstdint>

namespace
{
bool BelongsToMetals(MLTABLEKIND property)
{
    return property == MLTABLE_ROUGHNESS_TOP || property == MLTABLE_ROUGHNESS_BOTTOM;
}

// The answer of the library when a dielectric's tables allow no model.
constexpr double noModel = -1.0;
} // namespace

std::optional<double> FindValue(IMaterial& material, MLTABLEKIND property, double frequency,
                                double temperature)
{
    // A NaN of our own shows that nothing was written, even to a file that holds NaN.
    constexpr std::uint64_t untouched = 0x7FF8'0000'4D4C'5641;
    auto value = std::bit_cast<double>(untouched);
    material.GetValue(property, frequency, &value, temperature);
    if (std::bit_cast<std::uint64_t>(value) == untouched)
    {
        return std::nullopt;
    }
    if (value == noModel && !BelongsToMetals(property))
    {
        throw CFailure("no dielectric model fits the tables of " + Quote(material.GetName()) + " at " +
                       FormatNumber(temperature) +
                       " C: it needs Er above 0 and at least two rows of loss tangent from 10 kHz up, in "
                       "ascending order of frequency and at most 38 decades apart");
    }
    return value;
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
