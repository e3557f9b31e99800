#include "CAnswerStore.h"

#include <windows.h>

void CAnswerStore::Remember(const char* id, int answer)
{
    const auto value = static_cast<DWORD>(answer);
    RegSetKeyValueA(HKEY_CURRENT_USER, registryKey, id, REG_DWORD, &value, sizeof value);
}

std::optional<int> CAnswerStore::Find(const char* id) const
{
    DWORD value = 0;
    DWORD size = sizeof value;
    const LSTATUS status =
        RegGetValueA(HKEY_CURRENT_USER, registryKey, id, RRF_RT_REG_DWORD, nullptr, &value, &size);
    return status == ERROR_SUCCESS ? std::optional(static_cast<int>(value)) : std::nullopt;
}

CAnswerStore& GetAnswerStore()
{
    static CAnswerStore store;
    return store;
}
