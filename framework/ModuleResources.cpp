#include "framework/ModuleResources.h"

#include "framework/CModuleState.h"
#include "framework/TextConversion.h"

HINSTANCE GetModuleInstance() noexcept
{
    const CModuleState* const state = CurrentModuleState();
    return state != nullptr && state->instance != nullptr ? static_cast<HINSTANCE>(state->instance)
                                                          : GetHostInstance();
}

HINSTANCE GetHostInstance() noexcept
{
    return GetModuleHandleW(nullptr);
}

bool FindStringResource(HINSTANCE module, unsigned identifier, std::string& text)
{
    const wchar_t* resource = nullptr;
    const int length = LoadStringW(module, identifier, reinterpret_cast<wchar_t*>(&resource), 0);
    if (length <= 0)
    {
        return false;
    }
    text = ToMultibyte({resource, static_cast<std::size_t>(length)});
    return true;
}
