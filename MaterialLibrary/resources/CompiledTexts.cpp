#include "resources/CompiledTexts.h"

#include "resources/Texts.h"

bool FindModuleText(unsigned identifier, std::string& text)
{
    text = GetCompiledText(identifier);
    return !text.empty();
}

bool FindHostText(unsigned, std::string&)
{
    return false;
}
