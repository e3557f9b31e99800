// A translation module that says on the standard output what it is asked for.
#include "tests/win32/Console.h"

#include <string>

extern "C"
{
    const char* mgettext(const char* domain, const char* text)
    {
        PrintLine(std::string("mgettext ") + domain + ": " + text);
        static std::string translation;
        translation = std::string("translated ") + text;
        return translation.c_str();
    }

    void LoadTranslationFile(const char* domain, const char* catalogue)
    {
        PrintLine(std::string("LoadTranslationFile ") + domain + ": " + catalogue);
    }

    void UpdateLocaleDir()
    {
        PrintLine("UpdateLocaleDir");
    }

    // These are only looked for.
    void SelectLocale() {}
    void GetSelectedLocaleDir() {}
}
