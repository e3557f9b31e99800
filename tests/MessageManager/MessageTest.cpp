#include "shared/MessageManager/Message.h"

#include "tests/CollectedMessages.h"

#include <gtest/gtest.h>

namespace
{
TEST(Message, ShowsTheIconOfItsSeverityInPlaceOfTheCallersIcon)
{
    constexpr unsigned yesNoSecondDefault = 0x104;
    constexpr struct
    {
        unsigned severity;
        unsigned icon;
    } rows[] = {{0, 0x40}, {1, 0x40}, {2, 0x30}, {3, 0x10}, {4, 0x10}, {5, 0x40}, {0xFFFFFFFF, 0x40}};
    for (const auto& row : rows)
    {
        CollectedMessages box;
        msg::Message message;
        message.severity = row.severity;
        message.buttons = yesNoSecondDefault | 0xF0;
        msg::ShowMessage(message);
        ASSERT_EQ(box.boxes.size(), 1U);
        EXPECT_EQ(box.boxes[0].style, yesNoSecondDefault | row.icon) << row.severity;
    }
}

TEST(Message, IsCaptionedByCallerApplicationOrExecutable)
{
    const struct
    {
        const char* caption;
        const char* applicationName;
        const char* executablePath;
        const char* expected;
    } rows[] = {
        {"Stackup", "MaterialLibrary", "C:\\tool.exe", "Stackup"},
        {"", "MaterialLibrary", "C:\\tool.exe", ""},
        {nullptr, "MaterialLibrary", "C:\\tool.exe", "MaterialLibrary"},
        {nullptr, "", "C:\\bin\\tool.beta.exe", "tool.beta"},
        {nullptr, "", "C:\\bin.d\\tool", "tool"},
        {nullptr, "", "/usr/bin.d/matlib", "matlib"},
        {nullptr, "", "C:\\mixed/tool.exe", "tool"},
        {nullptr, "", "tool.exe", "tool"},
        {nullptr, "", "", ""},
    };
    for (const auto& row : rows)
    {
        CollectedMessages box;
        box.applicationName = row.applicationName;
        box.executablePath = row.executablePath;
        msg::Message message;
        message.caption = row.caption;
        msg::ShowMessage(message);
        ASSERT_EQ(box.boxes.size(), 1U);
        EXPECT_EQ(box.boxes[0].caption, row.expected) << row.executablePath;
    }
}

TEST(PlatformMessageBox, KnowsTheProgram)
{
    msg::ISystemMessageBox& box = msg::GetPlatformMessageBox();
    EXPECT_NE(box.GetExecutablePath().find("message_manager_test"), std::string::npos);
    EXPECT_EQ(box.FindMainWindow(), nullptr);
    EXPECT_EQ(box.GetApplicationName(), "") << "no application object was initialised";
}

#ifndef _WIN32
TEST(PlatformMessageBox, IsTheErrorStreamOutsideWindows)
{
    testing::internal::CaptureStderr();
    EXPECT_EQ(msg::GetPlatformMessageBox().Show(nullptr, "text", "caption", 0x34), msg::answerOk);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "caption: text\n");
}
#endif
} // namespace
