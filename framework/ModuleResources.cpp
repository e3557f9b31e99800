#include "framework/ModuleResources.h"

#include "framework/TextConversion.h"

// The linker's name for the start of the module that this code is part of.
extern "C" IMAGE_DOS_HEADER __ImageBase;

namespace
{
std::string LoadStringFrom(HINSTANCE module, unsigned identifier)
{
    const wchar_t* resource = nullptr;
    const int length = LoadStringW(module, identifier, reinterpret_cast<wchar_t*>(&resource), 0);
    return length <= 0 ? std::string() : ToMultibyte({resource, static_cast<std::size_t>(length)});
}
} // namespace

HINSTANCE GetModuleInstance() noexcept
{
    return reinterpret_cast<HINSTANCE>(&__ImageBase);
}

std::string LoadStringResource(unsigned identifier)
{
    std::string text = LoadStringFrom(GetModuleInstance(), identifier);
    return text.empty() ? LoadStringFrom(GetModuleHandleW(nullptr), identifier) : text;
}
