#include "tools/matlib/FrequencySweep.h"

#include "MaterialLibrary/IMaterial.h"

#include <cmath>

const SweptProperties& PropertiesOf(const IMaterial& material)
{
    return material.GetKind() == MLMATERIAL_METAL ? metalProperties : dielectricProperties;
}

std::vector<double> ListFrequencies(const Options& options)
{
    std::vector<double> frequencies;
    for (int index = 0; index + 1 < options.sweepPoints; ++index)
    {
        const double share = static_cast<double>(index) / (options.sweepPoints - 1);
        frequencies.push_back(options.sweepLogarithmic
                                  ? options.sweepFrom * std::pow(options.sweepTo / options.sweepFrom, share)
                                  : options.sweepFrom + (options.sweepTo - options.sweepFrom) * share);
    }
    frequencies.push_back(options.sweepTo);
    return frequencies;
}
