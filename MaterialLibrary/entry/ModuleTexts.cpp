#include "MaterialLibrary/entry/ModuleTexts.h"

#include "shared/Translation/Translate.h"

namespace
{
std::string TranslateModuleText(const char* text)
{
    return translate(moduleDomain, moduleCatalogue, text);
}

// A static initialiser, so that the module's catalogue is the one that gets registered: only the first
// translation of all registers one.
const ModuleTexts moduleTexts = {
    .er = TranslateModuleText("Er"),
    .lossTangent = TranslateModuleText("Loss Tangent"),
    .topRoughnessFactor = TranslateModuleText("Top Roughness Factor"),
    .bottomRoughnessFactor = TranslateModuleText("Bottom Roughness Factor"),
};
} // namespace

const ModuleTexts& GetModuleTexts()
{
    return moduleTexts;
}
