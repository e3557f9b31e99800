#pragma once

#include <windows.h>

#include <algorithm>
#include <stdexcept>

// Where a module keeps the address of a function that it imports from another one, made writable.
[[nodiscard]] inline void** FindImport(HMODULE module, const char* from, const char* function)
{
    auto* const base = reinterpret_cast<char*>(module);
    const auto& start = *reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
    const auto& headers = *reinterpret_cast<const IMAGE_NT_HEADERS64*>(base + start.e_lfanew);
    const auto& table = headers.OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IAT];
    auto** const first = reinterpret_cast<void**>(base + table.VirtualAddress);
    auto** const last = first + table.Size / sizeof *first;
    void* const address = reinterpret_cast<void*>(GetProcAddress(GetModuleHandleA(from), function));
    auto** const found = std::find(first, last, address);
    if (found == last)
    {
        throw std::runtime_error("the module does not import that function");
    }
    DWORD before = 0;
    VirtualProtect(found, sizeof *found, PAGE_READWRITE, &before);
    return found;
}
