#include "framework/Profile.h"

#include "framework/CHandle.h"
#include "shared/ModuleState/CModuleState.h"

#include <array>
#include <cstring>
#include <optional>
#include <span>

namespace
{
constexpr std::size_t longestValue = 4096;

std::string SectionPath(const char* section)
{
    const CModuleState& state = OwnModuleState();
    return state.registryKey.empty() || state.applicationName.empty()
               ? std::string()
               : "Software\\" + state.registryKey + "\\" + state.applicationName + "\\" + section;
}

// The bytes of a value of that type, or nothing.
std::optional<std::span<const char>> ReadValue(const char* section, const char* name, DWORD wantedType,
                                               std::span<char> buffer)
{
    const std::string path = SectionPath(section);
    HKEY opened = nullptr;
    if (path.empty() ||
        RegOpenKeyExA(HKEY_CURRENT_USER, path.c_str(), 0, KEY_QUERY_VALUE, &opened) != ERROR_SUCCESS)
    {
        return std::nullopt;
    }
    const CKey key(opened);
    DWORD type = 0;
    auto size = static_cast<DWORD>(buffer.size());
    const LSTATUS status =
        RegQueryValueExA(key.Get(), name, nullptr, &type, reinterpret_cast<BYTE*>(buffer.data()), &size);
    if (status != ERROR_SUCCESS || type != wantedType)
    {
        return std::nullopt;
    }
    return buffer.first(size);
}

bool WriteValue(const char* section, const char* name, DWORD type, std::span<const char> value)
{
    const std::string path = SectionPath(section);
    HKEY opened = nullptr;
    if (path.empty() || RegCreateKeyExA(HKEY_CURRENT_USER, path.c_str(), 0, nullptr, 0, KEY_SET_VALUE,
                                        nullptr, &opened, nullptr) != ERROR_SUCCESS)
    {
        return false;
    }
    const CKey key(opened);
    return RegSetValueExA(key.Get(), name, 0, type, reinterpret_cast<const BYTE*>(value.data()),
                          static_cast<DWORD>(value.size())) == ERROR_SUCCESS;
}
} // namespace

int ReadProfileInteger(const char* section, const char* name, int otherwise)
{
    std::array<char, longestValue> buffer;
    const auto bytes = ReadValue(section, name, REG_DWORD, buffer);
    int value = otherwise;
    if (bytes && bytes->size() == sizeof value)
    {
        std::memcpy(&value, bytes->data(), sizeof value);
    }
    return value;
}

std::string ReadProfileString(const char* section, const char* name, const char* otherwise)
{
    std::array<char, longestValue> buffer;
    const auto bytes = ReadValue(section, name, REG_SZ, buffer);
    return bytes ? std::string(bytes->data(), strnlen(bytes->data(), bytes->size())) : std::string(otherwise);
}

bool StoreProfileInteger(const char* section, const char* name, int value)
{
    std::array<char, sizeof value> bytes;
    std::memcpy(bytes.data(), &value, sizeof value);
    return WriteValue(section, name, REG_DWORD, bytes);
}

bool StoreProfileString(const char* section, const char* name, const std::string& value)
{
    return WriteValue(section, name, REG_SZ, {value.c_str(), value.size() + 1});
}
