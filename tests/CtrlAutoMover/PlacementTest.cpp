#include "framework/CHandle.h"
#include "framework/Profile.h"
#include "tests/CModalScript.h"
#include "tests/CSandboxedProfile.h"
#include "tests/CtrlAutoMover/CMoverDialog.h"

#include <gtest/gtest.h>

namespace
{
constexpr const char* section = "CMoverDialog";

RECT WorkArea()
{
    RECT area{};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0);
    return area;
}

std::string Describe(const RECT& rect)
{
    return std::to_string(rect.left) + "," + std::to_string(rect.top) + " " +
           std::to_string(rect.right - rect.left) + "x" + std::to_string(rect.bottom - rect.top);
}

class Placement : public testing::Test
{
protected:
    // Opens the dialog, lets `change` work on it, and returns where it was when it opened.
    std::string Open(std::function<void()> change = [] {})
    {
        RECT opened{};
        wasMaximised = false;
        CModalScript script({[&]
                             {
                                 opened = dialog.GetFrame();
                                 wasMaximised = IsZoomed(dialog.GetHandle()) != FALSE;
                             },
                             std::move(change), [&] { dialog.EndModal(1); }});
        EXPECT_EQ(dialog.DoModal(), 1);
        EXPECT_TRUE(script.IsDone());
        dialog.mover.reset();
        return Describe(opened);
    }

    std::string OpenWith(const char* position, const char* size, int maximise = 0)
    {
        StoreProfileInteger(section, "MaximizeWnd", maximise);
        StoreProfileString(section, "WndPosition", position);
        StoreProfileString(section, "WndSize", size);
        return Open();
    }

    CSandboxedProfile profile;
    CMoverDialog dialog;
    bool wasMaximised = false;
};

TEST_F(Placement, TheWindowReopensWhereItWasLeft)
{
    for (const bool maximise : {true, false})
    {
        Open(
            [&]
            {
                ShowWindow(dialog.GetHandle(), SW_RESTORE);
                SetWindowPos(dialog.GetHandle(), nullptr, 33, 44, 421, 322, SWP_NOZORDER);
                ShowWindow(dialog.GetHandle(), maximise ? SW_MAXIMIZE : SW_SHOW);
            });
        EXPECT_EQ(ReadProfileInteger(section, "MaximizeWnd", -1), maximise ? 1 : 0);
        EXPECT_EQ(ReadProfileString(section, "WndPosition", ""), "33,44");
        EXPECT_EQ(ReadProfileString(section, "WndSize", ""), "421,322");
        RECT restored{};
        for (int round = 0; round < 2; ++round) // it does not drift
        {
            Open(
                [&]
                {
                    ShowWindow(dialog.GetHandle(), SW_RESTORE);
                    restored = dialog.GetFrame();
                });
            EXPECT_EQ(wasMaximised, maximise && round == 0);
            EXPECT_EQ(Describe(restored), "33,44 421x322");
        }
    }
}

TEST_F(Placement, MalformedSettingsLeaveTheDefault)
{
    const std::string first = Open();
    EXPECT_EQ(OpenWith("5;6", "99999999999,1"), first);
    EXPECT_EQ(OpenWith(" 7 , 9", "400 ,300 "), "7,9 400x300");
    profile.SetRawValue(section, "MaximizeWnd", REG_SZ, "1");
    profile.SetRawValue(section, "WndPosition", REG_DWORD, "abcd");
    profile.SetRawValue(section, "WndSize", REG_SZ, std::string(100000, '1'));
    EXPECT_EQ(Open(), first);
    EXPECT_FALSE(wasMaximised);
}

TEST_F(Placement, AMonitorThatHasGoneBringsTheWindowBack)
{
    const RECT area = WorkArea();
    EXPECT_EQ(OpenWith("50000,-5000", "400,300"),
              Describe({area.right - 400, area.top, area.right, area.top + 300}));
    EXPECT_TRUE(OpenWith("100,100", "2147483647,2147483647").starts_with("0,0 "))
        << "the system limits the size";
}

TEST_F(Placement, IsNotKeptWithoutAClassNameOrWhenTheOwnerSaysSo)
{
    dialog.name = "CWnd";
    Open();
    EXPECT_EQ(ReadProfileInteger("CWnd", "MaximizeWnd", -1), -1);
    dialog.name = section;
    dialog.onInit = [&] { dialog.mover->keepPlacement = false; };
    Open();
    EXPECT_EQ(ReadProfileInteger(section, "MaximizeWnd", -1), -1);
}
} // namespace
