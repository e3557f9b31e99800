#include "framework/Profile.h"

#include "framework/CHandle.h"
#include "framework/CModuleState.h"
#include "tests/CSandboxedProfile.h"

#include <gtest/gtest.h>
#include <limits>

namespace
{
class Profile : public testing::Test
{
protected:
    CSandboxedProfile sandbox;
};

TEST_F(Profile, KeepsValuesUnderTheModulesKey)
{
    EXPECT_EQ(ReadProfileInteger("Section", "Number", 7), 7);
    EXPECT_EQ(ReadProfileString("Section", "Text", "none"), "none");
    for (const int value : {0, 1, -1, std::numeric_limits<int>::min()})
    {
        EXPECT_TRUE(StoreProfileInteger("Section", "Number", value));
        EXPECT_EQ(ReadProfileInteger("Section", "Number", 7), value);
    }
    for (const std::string& value : {std::string(), std::string("a,b \xB0"), std::string(4095, 'x')})
    {
        EXPECT_TRUE(StoreProfileString("Section", "Text", value));
        EXPECT_EQ(ReadProfileString("Section", "Text", "none"), value);
    }
}

TEST_F(Profile, TakesMalformedValuesForMissingOnes)
{
    const std::string tooLong(5000, '1');
    const struct
    {
        DWORD type;
        std::string bytes;
        bool isNumber;
        bool isText;
    } rows[] = {
        {REG_DWORD, std::string("\1\0\0", 3), false, false},
        {REG_DWORD, std::string("\1\0\0\0\0", 5), false, false},
        {REG_DWORD, "", false, false},
        {REG_QWORD, std::string("\1\0\0\0\0\0\0\0", 8), false, false},
        {REG_BINARY, std::string("\1\0\0\0", 4), false, false},
        {REG_SZ, std::string("1", 2), false, true},
        {REG_SZ, "12", false, true}, // no NUL at the end
        {REG_SZ, "", false, true},
        {REG_SZ, std::string("\0x\0\0", 4), false, true},
        {REG_SZ, tooLong, false, false},
        {REG_EXPAND_SZ, "%PATH%", false, false},
        {REG_MULTI_SZ, std::string("a\0b\0\0", 5), false, false},
        {REG_NONE, "", false, false},
    };
    for (const auto& row : rows)
    {
        sandbox.SetRawValue("Section", "Value", row.type, row.bytes);
        EXPECT_EQ(ReadProfileInteger("Section", "Value", 77) != 77, row.isNumber) << row.type << row.bytes;
        EXPECT_EQ(ReadProfileString("Section", "Value", "none") != "none", row.isText)
            << row.type << row.bytes;
    }
    sandbox.SetRawValue("Section", "Value", REG_SZ, "12");
    EXPECT_EQ(ReadProfileString("Section", "Value", "none"), "12");
}

TEST_F(Profile, IsEmptyWithoutAnApplication)
{
    StoreProfileInteger("Section", "Number", 1);
    OwnModuleState().registryKey.clear();
    EXPECT_EQ(ReadProfileInteger("Section", "Number", 7), 7);
    EXPECT_FALSE(StoreProfileInteger("Section", "Number", 1));
    EXPECT_FALSE(StoreProfileString("Section", "Text", "x"));
}
} // namespace
