#pragma once

#include "MaterialLibrary/IManager.h"

#include <optional>

// Remembers in the registry, for the user and for good, which messages not to show again and what was
// answered to questions. One value of type DWORD per message, named by its id.
class CAnswerStore final : public msg::IRegistrator
{
public:
    static constexpr const char* registryKey = "Software\\Example host\\Messages";

    void Remember(const char* id, int answer) override;
    void Reserved1() override {}
    void Reserved2() override {}
    [[nodiscard]] bool IsSuppressed(const char* id) override { return Find(id).has_value(); }

    // The remembered answer; nothing where the user wants to be asked.
    [[nodiscard]] std::optional<int> Find(const char* id) const;
};

[[nodiscard]] CAnswerStore& GetAnswerStore();
