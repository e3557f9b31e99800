#pragma once

#include "shared/MessageManager/IManager.h"

#include <gtest/gtest.h>
#include <set>
#include <string>
#include <vector>

// A store of don't-show-again choices that a test fills.
class CFakeRegistrator final : public msg::IRegistrator
{
public:
    std::set<std::string> suppressed;
    std::vector<std::string> remembered;

    void Remember(const char* id, int) override { remembered.emplace_back(id); }
    void Reserved1() override { ADD_FAILURE() << "reserved slot called"; }
    void Reserved2() override { ADD_FAILURE() << "reserved slot called"; }
    [[nodiscard]] bool IsSuppressed(const char* id) override { return suppressed.contains(id); }
};
