#include "framework/CDialog.h"
#include "framework/Profile.h"
#include "shared/CtrlAutoMover/win32/CCtrlAutoMover.h"
#include "shared/CtrlAutoMover/win32/WindowPlacement.h"
#include "tests/CModalScript.h"
#include "tests/CPixels.h"
#include "tests/CSandboxedProfile.h"
#include "tests/CollectedMessages.h"
#include "tests/CountHandles.h"
#include "tests/FindImport.h"

#include <gmock/gmock.h>
#include <memory>

namespace
{
constexpr int stretched = 601;
constexpr int below = 602;
constexpr int moved = 603;
constexpr int fixed = 604;
constexpr int missing = 999;
constexpr const char* section = "CMoverDialog";

class CMoverDialog final : public CDialog
{
public:
    CMoverDialog() : CDialog(500) {}

    using CDialog::EndModal;

    [[nodiscard]] const char* GetRuntimeClassName() const override { return name; }

    std::unique_ptr<CCtrlAutoMover> mover;
    std::function<void()> onInit = [] {};
    const char* name = section;

protected:
    bool OnInitDialog() override
    {
        mover = std::make_unique<CCtrlAutoMover>(this);
        onInit();
        return true;
    }
};

// A window's place in its parent or on the screen.
CtrlRect Place(HWND window)
{
    RECT rect{};
    GetWindowRect(window, &rect);
    MapWindowPoints(nullptr, GetAncestor(window, GA_PARENT), reinterpret_cast<POINT*>(&rect), 2);
    return {rect.left, rect.top, rect.right, rect.bottom};
}

class Mover : public testing::Test
{
protected:
    // Runs the dialog; these steps come after it was shown.
    void Run(std::deque<std::function<void()>> steps)
    {
        steps.emplace_front([&] { first = Place(dialog.GetHandle()); });
        steps.emplace_back([this] { dialog.EndModal(1); });
        CModalScript script(std::move(steps));
        EXPECT_EQ(dialog.DoModal(), 1);
        EXPECT_TRUE(script.IsDone());
        dialog.mover.reset();
    }

    void AddGroups(bool proportional)
    {
        CCtrlAutoMover& mover = *dialog.mover;
        const int groups[] = {
            mover.AddGroup(leftEdge, topEdge, rightEdge, bottomEdge, {stretched, missing}),
            mover.AddGroup(leftEdge, bottomEdge, rightEdge, bottomEdge, {below}),
            mover.AddGroup(rightEdge, bottomEdge, rightEdge, bottomEdge, {moved, 0, fixed}),
        };
        EXPECT_THAT(groups, testing::ElementsAre(1, 2, 3));
        EXPECT_EQ(mover.AddGroup(leftEdge, topEdge, leftEdge, topEdge, {0, fixed}), 0);
        for (int group = 0; proportional && group <= 4; ++group) // there is no group 0 and no group 4
        {
            const double factor = group % 4 == 0 ? 9.0 : 1.0;
            mover.SetProportional(group, dialog.GetHandle(), factor, factor, factor, factor);
        }
    }

    // Makes the window so much larger than it was when it opened.
    void Grow(int dx, int dy) const
    {
        SetWindowPos(dialog.GetHandle(), nullptr, 0, 0, first.right - first.left + dx,
                     first.bottom - first.top + dy, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    }

    [[nodiscard]] std::vector<CtrlRect> Controls() const
    {
        std::vector<CtrlRect> places;
        for (const int id : {stretched, below, moved, fixed})
        {
            places.push_back(Place(GetDlgItem(dialog.GetHandle(), id)));
        }
        return places;
    }

    CSandboxedProfile profile;
    CMoverDialog dialog;
    CtrlRect first{}; // where the window was when it opened
};

TEST_F(Mover, EveryGroupFollowsItsEdgesAndAHundredSizesLeadBack)
{
    for (const bool proportional : {true, false})
    {
        dialog.onInit = [&] { AddGroups(proportional); };
        Run({[&]
             {
                 const std::vector<CtrlRect> before = Controls();
                 for (int i = 1; i <= 100; ++i)
                 {
                     const int dx = 3 * i;
                     const int dy = 7 * i % 50;
                     std::vector<CtrlRect> expected = before;
                     expected[0].right += dx;
                     expected[0].bottom += dy;
                     expected[1] =
                         MoveByOffset(before[1], {leftEdge, bottomEdge, rightEdge, bottomEdge}, dx, dy);
                     expected[2] =
                         MoveByOffset(before[2], {rightEdge, bottomEdge, rightEdge, bottomEdge}, dx, dy);
                     Grow(dx, dy);
                     ASSERT_EQ(Controls(), expected) << i << (proportional ? " in proportion" : " by offset");
                     Grow(0, 0);
                     ASSERT_EQ(Controls(), before) << i;
                 }
                 dialog.mover->RemoveAllGroups();
                 Grow(30, 20);
                 EXPECT_EQ(Controls(), before) << "nobody moves without a group";
             }});
    }
}

TEST_F(Mover, AResizedDialogLooksAsIfItWerePaintedAfresh)
{
    for (const LONG_PTR clips : {LONG_PTR{0}, LONG_PTR{WS_CLIPCHILDREN}})
    {
        dialog.onInit = [&]
        {
            SetWindowLongPtrW(dialog.GetHandle(), GWL_STYLE,
                              GetWindowLongPtrW(dialog.GetHandle(), GWL_STYLE) | clips);
            AddGroups(true);
        };
        Run({[&]
             {
                 for (const int growth : {10, 25, 5, 40, 0})
                 {
                     Grow(growth, growth);
                     for (MSG message{}; PeekMessageW(&message, nullptr, WM_PAINT, WM_PAINT, PM_REMOVE);)
                     {
                         DispatchMessageW(&message);
                     }
                     const auto seen = ReadWindow(dialog.GetHandle());
                     RedrawWindow(dialog.GetHandle(), nullptr, nullptr,
                                  RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN | RDW_UPDATENOW);
                     EXPECT_TRUE(seen == ReadWindow(dialog.GetHandle())) << growth << " clips " << clips;
                 }
             }});
    }
}

TEST_F(Mover, KeepsTheMinimumSize)
{
    Run({[&]
         {
             dialog.mover->minWidth = first.right - first.left;
             dialog.mover->minHeight = first.bottom - first.top - 10;
             Grow(-100, -100);
             EXPECT_EQ(Place(dialog.GetHandle()),
                       (CtrlRect{first.left, first.top, first.right, first.bottom - 10}));
         }});
}

TEST_F(Mover, LeavesNothingBehind)
{
    dialog.onInit = [&]
    {
        for (int round = 0; round < 1000; ++round)
        {
            dialog.mover = nullptr;
            dialog.mover = std::make_unique<CCtrlAutoMover>(&dialog);
            AddGroups(true);
            Grow(round % 10, 0);
        }
        dialog.EndModal(1);
    };
    ExpectRoundsLeaveNothingBehind(1, 1, [&](int) { dialog.DoModal(); });
}

TEST_F(Mover, TheWindowReopensWhereItWasLeft)
{
    const auto restore = [&] { ShowWindow(dialog.GetHandle(), SW_RESTORE); };
    constexpr CtrlRect left{33, 44, 33 + 421, 44 + 322};
    for (const bool maximise : {true, false})
    {
        Run({restore, [&]
             {
                 MoveWindow(dialog.GetHandle(), left.left, left.top, 421, 322, FALSE);
                 ShowWindow(dialog.GetHandle(), maximise ? SW_MAXIMIZE : SW_SHOW);
             }});
        EXPECT_EQ(ReadProfileInteger(section, "MaximizeWnd", -1), maximise ? 1 : 0);
        EXPECT_EQ(ReadProfileString(section, "WndPosition", ""), "33,44");
        EXPECT_EQ(ReadProfileString(section, "WndSize", ""), "421,322");
        for (const bool wasMaximised : {maximise, false}) // it does not drift
        {
            Run({[&] { EXPECT_EQ(IsZoomed(dialog.GetHandle()) != FALSE, wasMaximised); }, restore,
                 [&] { EXPECT_EQ(Place(dialog.GetHandle()), left); }});
        }
    }
}

// As a system that snaps windows tells it.
BOOL WINAPI GetPlacementOfSnapped(HWND, WINDOWPLACEMENT* placement)
{
    placement->showCmd = SW_SHOWNORMAL;
    placement->rcNormalPosition = {33, 44, 33 + 421, 44 + 322};
    return TRUE;
}

TEST_F(Mover, AWindowSnappedToAnEdgeReopensInItsNormalFrame)
{
    void** const import = FindImport(GetModuleHandleW(nullptr), "user32", "GetWindowPlacement");
    void* const original = *import;
    Run({[&]
         {
             MoveWindow(dialog.GetHandle(), 0, 0, 512, 768, FALSE);
             *import = reinterpret_cast<void*>(GetPlacementOfSnapped);
             EXPECT_TRUE(IsSnapped(dialog.GetHandle()));
         }});
    *import = original;
    EXPECT_EQ(ReadProfileString(section, "WndPosition", ""), "33,44");
    EXPECT_EQ(ReadProfileString(section, "WndSize", ""), "421,322");
    Run({[&] { EXPECT_FALSE(IsSnapped(dialog.GetHandle())); }});
    EXPECT_EQ(first, (CtrlRect{33, 44, 33 + 421, 44 + 322}));
}

TEST_F(Mover, AMonitorThatHasGoneBringsTheWindowBack)
{
    RECT area{};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &area, 0);
    StoreProfileString(section, "WndPosition", "50000,-5000");
    StoreProfileString(section, "WndSize", "400 ,300 ");
    Run({});
    EXPECT_EQ(first, (CtrlRect{area.right - 400, area.top, area.right, area.top + 300}));
    StoreProfileString(section, "WndSize", "2147483647,2147483647"); // the system limits it
    Run({});
    EXPECT_EQ(std::pair(first.left, first.top), std::pair(0, 0));
}

TEST_F(Mover, ThePlacementIsNotKeptWithoutAClassNameOrWhenTheOwnerSaysSo)
{
    dialog.name = "CWnd";
    Run({});
    EXPECT_EQ(ReadProfileInteger("CWnd", "MaximizeWnd", -1), -1);
    dialog.name = section;
    dialog.onInit = [&] { dialog.mover->keepPlacement = false; };
    Run({});
    EXPECT_EQ(ReadProfileInteger(section, "MaximizeWnd", -1), -1);
}

TEST(MoverDeathTest, NeedsAnExistingWindow)
{
    CollectedMessages messages;
    messages.prints = true;
    const CWnd noWindow;
    EXPECT_EXIT(CCtrlAutoMover(nullptr), testing::ExitedWithCode(1),
                testing::HasSubstr("Line:93,   File:..\\shared\\CtrlAutoMover.cpp   File date:"));
    EXPECT_EXIT(CCtrlAutoMover mover(&noWindow), testing::ExitedWithCode(1),
                testing::HasSubstr("Line:94,   File:..\\shared\\CtrlAutoMover.cpp   File date:"));
    EXPECT_EXIT(CSizerGrip(nullptr), testing::ExitedWithCode(1),
                testing::HasSubstr("Line:66,   File:..\\shared\\SizerGrip.cpp   File date:"));
}
} // namespace
