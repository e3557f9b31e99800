#include "framework/ModuleResources.h"

#include "framework/TextConversion.h"

// The linker's name for the start of the module that this code is part of.
extern "C" IMAGE_DOS_HEADER __ImageBase;

HINSTANCE GetModuleInstance() noexcept
{
    return reinterpret_cast<HINSTANCE>(&__ImageBase);
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
