#include "resources/Texts.h"

namespace
{
struct CompiledText
{
    unsigned identifier;
    const char* text;
};

constexpr CompiledText compiledTexts[] = {
#define ML_TEXT(identifier, text) {identifier, text},
#include "resources/Texts.inc"
#undef ML_TEXT
};
} // namespace

bool FindModuleText(unsigned identifier, std::string& text)
{
    for (const CompiledText& compiled : compiledTexts)
    {
        if (compiled.identifier == identifier)
        {
            text = compiled.text;
            return true;
        }
    }
    return false;
}

bool FindHostText(unsigned, std::string&)
{
    return false;
}
