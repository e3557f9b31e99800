#pragma once

#include <string>

// The translation domains and their catalogue files. The module's domain is the key under which its
// catalogue is registered; its spelling is fixed.
inline constexpr const char* moduleDomain = "MATERIALLIBARY.DLL";
inline constexpr const char* moduleCatalogue = "MaterialLibrary.po";
inline constexpr const char* sharedDomain = "SHARED";
inline constexpr const char* sharedCatalogue = "shared.po";

using TranslateFunction = const char* (*)(const char* domain, const char* catalogue, const char* text);

// The translation of `text` in `domain`, or `text` itself. The result belongs to the translation module:
// copy it at once. The very first call of the module loads the translation module and registers
// `catalogue`; later calls ignore it.
extern TranslateFunction translate;

// A copy of the translation in the module's domain.
[[nodiscard]] inline std::string TranslateOwn(const char* text)
{
    return translate(moduleDomain, moduleCatalogue, text);
}
