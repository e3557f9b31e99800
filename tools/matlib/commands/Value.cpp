#include "MaterialLibrary/IMaterial.h"
#include "tools/matlib/CBulkMaterial.h"
#include "tools/matlib/CFailure.h"
#include "tools/matlib/CMaterialSet.h"
#include "tools/matlib/Console.h"
#include "tools/matlib/Json.h"
#include "tools/matlib/Origin.h"
#include "tools/matlib/PropertyValue.h"
#include "tools/matlib/Wording.h"
#include "tools/matlib/commands/Commands.h"

#include <cmath>

namespace
{
struct Answer
{
    double value;
    std::uint8_t status;
};

// The host's library answers, as it does to every host; where the answer comes from, and the model's own
// value, says the library for C.
Answer Ask(const Options& options, IMaterial& material)
{
    const BulkValues bulk = CBulkMaterial(material).Ask(options.property, options.temperature, options.smooth,
                                                        std::span(&options.frequency, 1));
    RequireValue(material, options.property, options.temperature, bulk.status.front());
    double value = bulk.values.front();
    if (!options.smooth)
    {
        material.GetValue(options.property, options.frequency, &value, options.temperature);
    }
    if (!std::isfinite(value))
    {
        throw CFailure("the " + std::string(WordsOf(options.property).sentence) + " of " +
                       Quote(material.GetName()) + " at " + FormatFrequency(options.frequency) +
                       " is no finite number");
    }
    return {value, bulk.status.front()};
}
} // namespace

int RunValue(const Options& options, ILibraryHost& host)
{
    const CMaterialSet set(host, options);
    IMaterial& material = set.Find(options.material);
    const Answer answer = Ask(options, material);
    if (options.json)
    {
        PrintOutput(RenderJson({{"name", material.GetName()},
                                {"property", WordsOf(options.property).key},
                                {"frequency_hz", options.frequency},
                                {"temperature_c", options.temperature},
                                {"value", answer.value},
                                {"status", OriginWord(answer.status)}}));
    }
    else
    {
        PrintOutput(FormatNumber(answer.value) + "\n");
    }
    COriginCounter origins;
    origins.Add(std::span(&answer.status, 1));
    PrintOrigins(origins);
    return set.GetExitCode();
}
