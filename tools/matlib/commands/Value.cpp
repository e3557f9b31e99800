#include "MaterialLibrary/IMaterial.h"
#include "tools/matlib/CFailure.h"
#include "tools/matlib/CMaterialSet.h"
#include "tools/matlib/Console.h"
#include "tools/matlib/Json.h"
#include "tools/matlib/PropertyValue.h"
#include "tools/matlib/Wording.h"
#include "tools/matlib/commands/Commands.h"

int RunValue(const Options& options, ILibraryHost& host)
{
    const CMaterialSet set(host, options.libraryFiles);
    IMaterial& material = set.Find(options.material);
    const auto value = FindValue(material, options.property, options.frequency, options.temperature);
    if (!value)
    {
        throw CFailure(ExplainMissingValue(material, options.property));
    }
    if (options.json)
    {
        PrintOutput(RenderJson({{"name", material.GetName()},
                                {"property", WordsOf(options.property).key},
                                {"frequency_hz", options.frequency},
                                {"temperature_c", options.temperature},
                                {"value", *value}}));
    }
    else
    {
        PrintOutput(FormatNumber(*value) + "\n");
    }
    return set.GetExitCode();
}
