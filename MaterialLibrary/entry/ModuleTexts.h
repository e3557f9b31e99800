#pragma once

#include <string>

// The names of the four properties in the user's language, translated once when the module is loaded.
struct ModuleTexts
{
    std::string er;
    std::string lossTangent;
    std::string topRoughnessFactor;
    std::string bottomRoughnessFactor;
};

[[nodiscard]] const ModuleTexts& GetModuleTexts();
