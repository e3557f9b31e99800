#include "shared/Translation/Translate.h"

#include "shared/Translation/CTranslator.h"

namespace
{
CTranslator& ModuleTranslator()
{
    static CTranslator translator(GetSystemModuleLoader());
    return translator;
}

const char* TranslateSteadily(const char* domain, const char* /*catalogue*/, const char* text)
{
    return ModuleTranslator().Translate(domain, text);
}

const char* TranslateFirst(const char* domain, const char* catalogue, const char* text)
{
    translate = TranslateSteadily; // before anything else: a failed load is not tried again
    return ModuleTranslator().TranslateFirst(domain, catalogue, text);
}
} // namespace

// Constant-initialised: static initialisers of other files call it.
constinit TranslateFunction translate = TranslateFirst;
