#pragma once

#include "shared/OptionalModule/IModuleLoader.h"

// Translates texts through the optional module "gettext64.dll". Without that module, or without one of
// its required entry points, every text stays as it is; nothing is reported.
class CTranslator
{
public:
    explicit CTranslator(IModuleLoader& moduleLoader) : loader(moduleLoader) {}

    // The first translation: loads the module and, when `domain` and `catalogue` are both given, registers
    // the catalogue with it. Only this first one is registered.
    [[nodiscard]] const char* TranslateFirst(const char* domain, const char* catalogue, const char* text);

    // The translation of `text` in `domain`, owned by the translation module, or `text` itself.
    [[nodiscard]] const char* Translate(const char* domain, const char* text) const;

private:
    bool LoadModule();
    [[nodiscard]] const char* Ask(const char* domain, const char* text) const;

    IModuleLoader& loader;
    const char* (*mgettext)(const char* domain, const char* text) = nullptr;
    void (*loadTranslationFile)(const char* domain, const char* catalogue) = nullptr;
    void (*selectLocale)() = nullptr;
    void (*getSelectedLocaleDir)() = nullptr;
};
