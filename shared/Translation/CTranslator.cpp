#include "shared/Translation/CTranslator.h"

bool CTranslator::LoadModule()
{
    const IModuleLoader::Module module = loader.Load("gettext64.dll");
    if (module == nullptr)
    {
        return false;
    }
    mgettext = ResolveAs<decltype(mgettext)>(loader, module, "mgettext");
    loadTranslationFile = ResolveAs<decltype(loadTranslationFile)>(loader, module, "LoadTranslationFile");
    selectLocale = ResolveAs<decltype(selectLocale)>(loader, module, "SelectLocale");
    getSelectedLocaleDir = ResolveAs<decltype(getSelectedLocaleDir)>(loader, module, "GetSelectedLocaleDir");
    if (const auto updateLocaleDir = loader.Resolve(module, "UpdateLocaleDir"))
    {
        updateLocaleDir();
    }
    if (mgettext != nullptr && loadTranslationFile != nullptr && selectLocale != nullptr &&
        getSelectedLocaleDir != nullptr)
    {
        return true;
    }
    mgettext = nullptr;
    loadTranslationFile = nullptr;
    selectLocale = nullptr;
    getSelectedLocaleDir = nullptr;
    return false;
}

const char* CTranslator::TranslateFirst(const char* domain, const char* catalogue, const char* text)
{
    if (mgettext == nullptr && !LoadModule())
    {
        return text;
    }
    if (domain != nullptr && catalogue != nullptr)
    {
        loadTranslationFile(domain, catalogue);
    }
    return Ask(domain, text);
}

const char* CTranslator::Translate(const char* domain, const char* text) const
{
    return mgettext == nullptr ? text : Ask(domain, text);
}

// A module that answers null has no translation.
const char* CTranslator::Ask(const char* domain, const char* text) const
{
    const char* const found = mgettext(domain, text);
    return found != nullptr ? found : text;
}
