#pragma once

#include <windows.h>

#include <span>
#include <stdexcept>
#include <string>
#include <vector>

// A module of this process as the linker laid it out.
class CImage
{
public:
    explicit CImage(HMODULE module) : base(reinterpret_cast<const char*>(module)) {}

    [[nodiscard]] std::vector<std::string> GetImportedModules() const
    {
        std::vector<std::string> names;
        const auto* entry = At<IMAGE_IMPORT_DESCRIPTOR>(Directory(IMAGE_DIRECTORY_ENTRY_IMPORT));
        for (; entry->Name != 0; ++entry)
        {
            names.emplace_back(At<char>(entry->Name));
        }
        return names;
    }

    // The names; one without a name throws.
    [[nodiscard]] std::vector<std::string> GetExports() const
    {
        const auto* table = At<IMAGE_EXPORT_DIRECTORY>(Directory(IMAGE_DIRECTORY_ENTRY_EXPORT));
        if (table->NumberOfFunctions != table->NumberOfNames)
        {
            throw std::runtime_error("the module exports functions without a name");
        }
        std::vector<std::string> names;
        for (DWORD i = 0; i < table->NumberOfNames; ++i)
        {
            names.emplace_back(At<char>(At<DWORD>(table->AddressOfNames)[i]));
        }
        return names;
    }

    [[nodiscard]] const IMAGE_NT_HEADERS64& GetHeaders() const
    {
        return *At<IMAGE_NT_HEADERS64>(static_cast<DWORD>(At<IMAGE_DOS_HEADER>(0)->e_lfanew));
    }

    [[nodiscard]] std::span<const IMAGE_SECTION_HEADER> GetSections() const
    {
        return {IMAGE_FIRST_SECTION(&GetHeaders()), GetHeaders().FileHeader.NumberOfSections};
    }

    // Where the module keeps the address of a function that it imports, made writable.
    [[nodiscard]] void** FindImport(const std::string& function) const
    {
        const auto* entry = At<IMAGE_IMPORT_DESCRIPTOR>(Directory(IMAGE_DIRECTORY_ENTRY_IMPORT));
        for (; entry->Name != 0; ++entry)
        {
            const auto* name = At<IMAGE_THUNK_DATA64>(entry->OriginalFirstThunk);
            for (DWORD i = 0; name[i].u1.AddressOfData != 0; ++i)
            {
                const auto* byName = At<IMAGE_IMPORT_BY_NAME>(static_cast<DWORD>(name[i].u1.AddressOfData));
                if (function == byName->Name)
                {
                    const DWORD address = entry->FirstThunk + i * static_cast<DWORD>(sizeof(void*));
                    void** const place = const_cast<void**>(At<void*>(address));
                    DWORD before = 0;
                    VirtualProtect(place, sizeof *place, PAGE_READWRITE, &before);
                    return place;
                }
            }
        }
        throw std::runtime_error("the module does not import " + function);
    }

private:
    template <class Type>
    [[nodiscard]] const Type* At(DWORD offset) const
    {
        return reinterpret_cast<const Type*>(base + offset);
    }

    [[nodiscard]] DWORD Directory(unsigned index) const
    {
        return GetHeaders().OptionalHeader.DataDirectory[index].VirtualAddress;
    }

    const char* base;
};
