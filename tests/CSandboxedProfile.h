#pragma once

#include "framework/CModuleState.h"

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
        HKEY root = nullptr;
        RegCreateKeyA(HKEY_CURRENT_USER, path, &root);
        RegOverridePredefKey(HKEY_CURRENT_USER, root);
        RegCloseKey(root);
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
    static void SetRawValue(const char* section, const char* name, DWORD type, const std::string& bytes)
    {
        const std::string key = std::string("Software\\Corvane\\MaterialLibrary\\") + section;
        RegSetKeyValueA(HKEY_CURRENT_USER, key.c_str(), name, type, bytes.data(),
                        static_cast<DWORD>(bytes.size()));
    }

private:
    static constexpr const char* path = "Software\\MaterialLibraryTest";
};
