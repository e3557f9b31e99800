#pragma once

#include "framework/CHandle.h"
#include "shared/ModuleState/CModuleState.h"

#include <string>

// Gives the module its name and an empty HKEY_CURRENT_USER of the test's own while it lives.
class CSandboxedProfile
{
public:
    CSandboxedProfile()
    {
        OwnModuleState().applicationName = "MaterialLibrary";
        OwnModuleState().registryKey = "Corvane";
        RegDeleteTreeA(HKEY_CURRENT_USER, path);
        HKEY opened = nullptr;
        RegCreateKeyExA(HKEY_CURRENT_USER, path, 0, nullptr, REG_OPTION_NON_VOLATILE, KEY_ALL_ACCESS, nullptr,
                        &opened, nullptr);
        root.Reset(opened);
        RegOverridePredefKey(HKEY_CURRENT_USER, root.Get());
    }
    ~CSandboxedProfile()
    {
        RegOverridePredefKey(HKEY_CURRENT_USER, nullptr);
        RegDeleteTreeA(HKEY_CURRENT_USER, path);
        OwnModuleState() = {};
    }
    CSandboxedProfile(const CSandboxedProfile&) = delete;
    CSandboxedProfile& operator=(const CSandboxedProfile&) = delete;

    // Writes a value of any type, also a malformed one.
    void SetRawValue(const char* section, const char* name, DWORD type, const std::string& bytes)
    {
        HKEY opened = nullptr;
        const std::string keyPath = std::string("Software\\Corvane\\MaterialLibrary\\") + section;
        RegCreateKeyExA(root.Get(), keyPath.c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE, KEY_ALL_ACCESS,
                        nullptr, &opened, nullptr);
        const CKey key(opened);
        RegSetValueExA(key.Get(), name, 0, type, reinterpret_cast<const BYTE*>(bytes.data()),
                       static_cast<DWORD>(bytes.size()));
    }

private:
    static constexpr const char* path = "Software\\MaterialLibraryTest";
    CKey root;
};
