#include "grid/CTypedSearch.h"

void CTypedSearch::Add(wchar_t character, std::uint32_t time)
{
    if (!IsGoingOn(time))
    {
        typed.clear();
    }
    typed += character;
    last = time;
    repeats = typed.find_first_not_of(typed.front()) == std::wstring::npos;
}

bool CTypedSearch::IsGoingOn(std::uint32_t time) const
{
    constexpr std::uint32_t pause = 1000;
    return !typed.empty() && time - last <= pause;
}
