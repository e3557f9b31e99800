// Any bytes as a material file to be formatted: refused where the library refuses them, otherwise the result
// loads the same and is formatted already. And what was loaded can be written.
#include "model/CFakeMaterialLib.h"
#include "model/CMaterial.h"
#include "reader/LoadMaterialFile.h"
#include "reader/ReadError.h"
#include "writer/DescribeMaterial.h"
#include "writer/FormatMaterialText.h"
#include "writer/WriteMaterials.h"

#include <cstdint>
#include <cstdlib>

namespace
{
void Require(bool condition)
{
    if (!condition)
    {
        std::abort();
    }
}

// The materials of the text; none where it is refused.
std::optional<std::vector<MaterialDescription>> Load(const std::string& text)
{
    CFakeMaterialLib library;
    if (ReadMaterials(library, PadText(text).c_str()))
    {
        return std::nullopt;
    }
    std::vector<MaterialDescription> materials;
    for (IMaterial* const each : library.GetMaterials())
    {
        materials.push_back(DescribeMaterial(static_cast<const CMaterial&>(*each)));
    }
    return materials;
}

bool IsRefused(const std::string& text)
{
    try
    {
        static_cast<void>(FormatMaterialText(text));
        return false;
    }
    catch (const CParseError&)
    {
        return true;
    }
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string text(reinterpret_cast<const char*>(data), size);
    const auto loaded = Load(text);
    if (!loaded)
    {
        Require(IsRefused(text));
        return 0;
    }
    const std::string formatted = FormatMaterialText(text);
    Require(FormatMaterialText(formatted) == formatted);
    // Numbers are spelled so that they tell every double from every other one.
    const std::string written = WriteMaterials(*loaded);
    Require(WriteMaterials(Load(formatted).value()) == written);
    Require(WriteMaterials(Load(written).value()) == written);
    return 0;
}
