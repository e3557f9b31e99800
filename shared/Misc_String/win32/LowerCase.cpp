#include "shared/Misc_String/LowerCase.h"

#include <windows.h>

std::string ToLowerCase(std::string_view text)
{
    std::string lower(text);
    CharLowerBuffA(lower.data(), static_cast<DWORD>(lower.size()));
    return lower;
}
