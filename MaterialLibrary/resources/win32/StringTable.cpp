#include "MaterialLibrary/resources/Texts.h"

#include <windows.h>

// The linker's name for the start of the module that this code is part of.
extern "C" IMAGE_DOS_HEADER __ImageBase;

namespace
{
bool FindText(HINSTANCE module, unsigned identifier, std::string& text)
{
    const wchar_t* resource = nullptr;
    const int length = LoadStringW(module, identifier, reinterpret_cast<wchar_t*>(&resource), 0);
    if (length <= 0)
    {
        return false;
    }
    const int size = WideCharToMultiByte(CP_ACP, 0, resource, length, nullptr, 0, nullptr, nullptr);
    text.resize(static_cast<std::size_t>(size));
    WideCharToMultiByte(CP_ACP, 0, resource, length, text.data(), size, nullptr, nullptr);
    return true;
}
} // namespace

bool FindModuleText(unsigned identifier, std::string& text)
{
    return FindText(reinterpret_cast<HINSTANCE>(&__ImageBase), identifier, text);
}

bool FindHostText(unsigned identifier, std::string& text)
{
    return FindText(GetModuleHandleW(nullptr), identifier, text);
}
