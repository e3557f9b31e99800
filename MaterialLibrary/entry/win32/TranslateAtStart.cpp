#include "chooser/MaterialCurves.h"
#include "shared/Translation/Translate.h"

namespace
{
// Static, so that the module's catalogue is the one that gets registered: only the first translation of all
// registers one. The curves' titles that follow the language are kept; the roughness factors keep theirs, but
// the translation module is asked for them too.
[[maybe_unused]] const bool translatedAtStart = []
{
    static_cast<void>(GetMaterialCurveDefs());
    for (const char* const text : {"Top Roughness Factor", "Bottom Roughness Factor"})
    {
        static_cast<void>(TranslateOwn(text));
    }
    return true;
}();
} // namespace
