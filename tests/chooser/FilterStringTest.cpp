#include "chooser/CFilterString.h"
#include "shared/Misc_String/CodePage.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace
{
using Filters = std::vector<CFilterString::CFilter>;

// Each run as "wildcards before it" and "its text" in brackets: ?*[text]
std::string Describe(const Filters& filters)
{
    std::string described;
    for (const CFilterString::CFilter& filter : filters)
    {
        described += std::string(filter.skip, '?') + (filter.star ? "*" : "") + "[" + filter.text + "]";
    }
    return described;
}

TEST(CFilterString, CutsPatternsIntoRuns)
{
    const std::pair<const char*, const char*> cases[] = {
        {"", ""},
        {"*", "*[]"},
        {"**", "*[]"},
        {"?*?", "??*[]"},
        {"ab*cd?e", "[ab]*[cd]?[e]"},
        {"a*?b", "[a]?*[b]"},
        {"a??b", "[a]??[b]"},
        {"*a*", "*[a]*[]"},
        {"FR-4?", "[fr-4]?[]"},
        {R"(x\*y)", "[x*y]"},
        {R"(\?\\\z)", R"([?\\z])"},
        {R"(a\)", R"([a\])"},
        {R"(\\*)", R"([\]*[])"},
    };
    for (const auto& [pattern, expected] : cases)
    {
        EXPECT_EQ(Describe(ParseFilterPattern(pattern)), expected) << pattern;
    }
}

// The second byte of a double-byte character may be that of a backslash.
TEST(CFilterString, DoesNotTakeTrailBytesForEscapes)
{
    SetLeadByteTest([](unsigned char byte) { return byte == 0x83; });
    const Filters filters = ParseFilterPattern("\x83\\*");
    SetLeadByteTest(nullptr);
    EXPECT_EQ(Describe(filters), "[\x83\\]*[]");
}

TEST(CFilterString, ResetMatchesEverything)
{
    CFilterString filter;
    EXPECT_TRUE(filter.GetFilters().empty());
    filter.Reset();
    EXPECT_EQ(Describe(filter.GetFilters()), "*[]");
    EXPECT_EQ(filter.GetPattern(), "*");
    EXPECT_EQ(filter.GetInput(), "");
}
} // namespace
