#include "resources/Texts.h"

std::string LoadText(unsigned identifier)
{
    const bool hostMayReplace =
        identifier >= MLTEXT_OPEN_ERROR && identifier <= MLTEXT_FREQUENCY_WITHOUT_VALUE;
    std::string text;
    if (hostMayReplace && FindHostText(identifier, text))
    {
        return text;
    }
    return FindModuleText(identifier, text) ? text : std::string();
}
