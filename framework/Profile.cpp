#include "framework/Profile.h"

#include "framework/CModuleState.h"

#include <windows.h>

#include <array>

namespace
{
// Empty while the module has no name.
std::string SectionPath(const char* section)
{
    const CModuleState& state = OwnModuleState();
    return state.registryKey.empty() || state.applicationName.empty()
               ? std::string()
               : "Software\\" + state.registryKey + "\\" + state.applicationName + "\\" + section;
}

// Whether `size` bytes, at most, of a value of that type were read; then `size` is how many.
bool ReadValue(const char* section, const char* name, DWORD type, void* value, DWORD& size)
{
    const std::string path = SectionPath(section);
    return !path.empty() && RegGetValueA(HKEY_CURRENT_USER, path.c_str(), name, type | RRF_NOEXPAND, nullptr,
                                         value, &size) == ERROR_SUCCESS;
}

bool StoreValue(const char* section, const char* name, DWORD type, const void* value, std::size_t size)
{
    const std::string path = SectionPath(section);
    return !path.empty() && RegSetKeyValueA(HKEY_CURRENT_USER, path.c_str(), name, type, value,
                                            static_cast<DWORD>(size)) == ERROR_SUCCESS;
}
} // namespace

int ReadProfileInteger(const char* section, const char* name, int otherwise)
{
    int value = 0;
    DWORD size = sizeof value;
    return ReadValue(section, name, RRF_RT_REG_DWORD, &value, size) && size == sizeof value ? value
                                                                                            : otherwise;
}

std::string ReadProfileString(const char* section, const char* name, const char* otherwise)
{
    std::array<char, 4096> value;
    DWORD size = value.size();
    return ReadValue(section, name, RRF_RT_REG_SZ, value.data(), size) ? value.data() : otherwise;
}

bool StoreProfileInteger(const char* section, const char* name, int value)
{
    return StoreValue(section, name, REG_DWORD, &value, sizeof value);
}

bool StoreProfileString(const char* section, const char* name, const std::string& value)
{
    return StoreValue(section, name, REG_SZ, value.c_str(), value.size() + 1);
}
