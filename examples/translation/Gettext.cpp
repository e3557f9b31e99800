// gettext64.dll of an example host: put it beside the host's executable, with the folder "locale", and the
// chart in the library's dialog and its menu speak the user's language; the rest of the dialog and the
// messages stay English. Start here, then see CCatalogue.
#include "CCatalogue.h"

#include <windows.h>

#include <new>

namespace
{
std::string& Language()
{
    static std::string language;
    return language;
}

std::map<std::string, CCatalogue, std::less<>>& Catalogues()
{
    static std::map<std::string, CCatalogue, std::less<>> catalogues;
    return catalogues;
}

// The folder that this module was loaded from, with a backslash at its end.
std::string FindOwnFolder()
{
    HMODULE module = nullptr;
    GetModuleHandleExA(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<const char*>(&FindOwnFolder), &module);
    char path[MAX_PATH] = {};
    GetModuleFileNameA(module, path, MAX_PATH);
    const std::string file = path;
    return file.substr(0, file.rfind('\\') + 1);
}

// Two letters: of the environment variable LANGUAGE, otherwise of Windows' settings.
std::string FindLanguage()
{
    char language[LOCALE_NAME_MAX_LENGTH] = {};
    if (GetEnvironmentVariableA("LANGUAGE", language, LOCALE_NAME_MAX_LENGTH) == 0)
    {
        GetLocaleInfoA(LOCALE_USER_DEFAULT, LOCALE_SISO639LANGNAME, language, LOCALE_NAME_MAX_LENGTH);
    }
    return std::string(language).substr(0, 2);
}
} // namespace

// The library may have been built with another compiler: no exception leaves these functions. When memory
// runs out texts stay as they are.
extern "C"
{
    // Called once when the module was loaded.
    __declspec(dllexport) void UpdateLocaleDir()
    {
        try
        {
            Language() = FindLanguage();
        }
        catch (const std::bad_alloc&)
        {
            Language().clear();
        }
    }

    __declspec(dllexport) void LoadTranslationFile(const char* domain, const char* catalogue)
    {
        try
        {
            Catalogues().insert_or_assign(
                domain, CCatalogue(FindOwnFolder() + "locale\\" + Language() + "\\" + catalogue));
        }
        catch (const std::bad_alloc&)
        {
            return;
        }
    }

    // The translation belongs to this module; the caller copies it.
    __declspec(dllexport) const char* mgettext(const char* domain, const char* text)
    {
        const auto catalogue = Catalogues().find(std::string_view(domain));
        const char* const translation =
            catalogue == Catalogues().end() ? nullptr : catalogue->second.Find(text);
        return translation != nullptr ? translation : text;
    }

    // For hosts that let the user choose a language. The library only looks whether they are there.
    __declspec(dllexport) void SelectLocale() {}
    __declspec(dllexport) void GetSelectedLocaleDir() {}
}
