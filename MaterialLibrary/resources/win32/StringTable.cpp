#include "framework/ModuleResources.h"
#include "resources/Texts.h"

bool FindModuleText(unsigned identifier, std::string& text)
{
    return FindStringResource(GetModuleInstance(), identifier, text);
}

bool FindHostText(unsigned identifier, std::string& text)
{
    return FindStringResource(GetHostInstance(), identifier, text);
}
