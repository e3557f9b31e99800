#include "framework/CHandle.h"
#include "tests/CModalScript.h"
#include "tests/CPixels.h"
#include "tests/CPrintingBox.h"
#include "tests/CSandboxedProfile.h"
#include "tests/CountHandles.h"
#include "tests/CtrlAutoMover/CMoverDialog.h"

#include <gmock/gmock.h>
#include <map>

namespace
{
constexpr int stretched = 601;
constexpr int below = 602;
constexpr int moved = 603;
constexpr int fixed = 604;
constexpr int missing = 999;

class Mover : public testing::Test
{
protected:
    // Runs the dialog, with these steps after it was shown.
    void Run(std::deque<std::function<void()>> steps)
    {
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
        for (const int group : groups)
        {
            if (proportional)
            {
                mover.SetProportional(group, dialog.GetHandle(), 1.0, 1.0, 1.0, 1.0);
            }
        }
        mover.SetProportional(0, dialog.GetHandle(), 9.0, 9.0, 9.0, 9.0);
        mover.SetProportional(4, dialog.GetHandle(), 9.0, 9.0, 9.0, 9.0);
    }

    std::map<int, CtrlRect> Controls() const
    {
        std::map<int, CtrlRect> controls;
        for (const int id : {stretched, below, moved, fixed})
        {
            controls[id] = dialog.GetControl(id);
        }
        return controls;
    }

    CSandboxedProfile profile;
    CMoverDialog dialog;
};

TEST_F(Mover, AHundredSizesLeadBackToTheExactFirstGeometry)
{
    for (const bool proportional : {true, false})
    {
        dialog.onInit = [&] { AddGroups(proportional); };
        Run({[&]
             {
                 const auto first = Controls();
                 const RECT frame = dialog.GetFrame();
                 const int width = frame.right - frame.left;
                 const int height = frame.bottom - frame.top;
                 for (int i = 1; i <= 100; ++i)
                 {
                     dialog.Resize(width + 3 * i, height + 7 * i % 50);
                     EXPECT_EQ(dialog.GetControl(stretched).right, first.at(stretched).right + 3 * i);
                     dialog.Resize(width, height);
                     ASSERT_EQ(Controls(), first) << i << (proportional ? " in proportion" : " by offset");
                 }
             }});
    }
}

TEST_F(Mover, EveryGroupFollowsItsEdges)
{
    dialog.onInit = [&] { AddGroups(true); };
    Run({[&]
         {
             const auto first = Controls();
             const RECT frame = dialog.GetFrame();
             dialog.Resize(frame.right - frame.left + 30, frame.bottom - frame.top + 20);
             auto expected = first;
             expected[stretched].right += 30;
             expected[stretched].bottom += 20;
             expected[below] = {first.at(below).left, first.at(below).top + 20, first.at(below).right + 30,
                                first.at(below).bottom + 20};
             expected[moved] = {first.at(moved).left + 30, first.at(moved).top + 20,
                                first.at(moved).right + 30, first.at(moved).bottom + 20};
             EXPECT_EQ(Controls(), expected);

             dialog.mover->RemoveAllGroups();
             dialog.Resize(frame.right - frame.left, frame.bottom - frame.top);
             EXPECT_EQ(Controls(), expected) << "nobody moves without a group";
         }});
}

void PaintEverythingInvalid()
{
    MSG message{};
    while (PeekMessageW(&message, nullptr, WM_PAINT, WM_PAINT, PM_REMOVE) != FALSE)
    {
        DispatchMessageW(&message);
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
                 const RECT frame = dialog.GetFrame();
                 for (const int growth : {10, 25, 5, 40, 0})
                 {
                     dialog.Resize(frame.right - frame.left + growth, frame.bottom - frame.top + growth);
                     PaintEverythingInvalid();
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
             const RECT frame = dialog.GetFrame();
             dialog.mover->minWidth = frame.right - frame.left;
             dialog.mover->minHeight = frame.bottom - frame.top - 10;
             dialog.Resize(50, 50);
             EXPECT_EQ(dialog.GetFrame().right, frame.right);
             EXPECT_EQ(dialog.GetFrame().bottom, frame.bottom - 10);
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
            dialog.Resize(500 + round % 10, 400);
        }
        dialog.EndModal(1);
    };
    ExpectRoundsLeaveNothingBehind(1, 1, [&](int) { dialog.DoModal(); });
}

TEST_F(Mover, MayOutliveItsWindowAndGoBeforeIt)
{
    RegisterPlainWindowClass(L"MoverTest");
    for (const bool windowFirst : {true, false})
    {
        CWindowHandle window(CreatePlainWindow({.className = L"MoverTest"}));
        const LONG_PTR procedure = GetWindowLongPtrW(window.get(), GWLP_WNDPROC);
        CWnd object;
        object.Attach(window.get());
        auto mover = std::make_unique<CCtrlAutoMover>(&object);
        if (windowFirst)
        {
            window.reset();
        }
        object.Detach();
        mover.reset();
        if (!windowFirst)
        {
            EXPECT_EQ(GetWindowLongPtrW(window.get(), GWLP_WNDPROC), procedure);
        }
    }
}

TEST(MoverDeathTest, NeedsAnExistingWindow)
{
    const CPrintingBox box;
    const CWnd noWindow;
    EXPECT_EXIT(CCtrlAutoMover(nullptr), testing::ExitedWithCode(1),
                testing::HasSubstr("Line:93,   File:..\\shared\\CtrlAutoMover.cpp   File date:"));
    EXPECT_EXIT(CCtrlAutoMover mover(&noWindow), testing::ExitedWithCode(1),
                testing::HasSubstr("Line:94,   File:..\\shared\\CtrlAutoMover.cpp   File date:"));
    EXPECT_EXIT(CSizerGrip(nullptr), testing::ExitedWithCode(1),
                testing::HasSubstr("Line:66,   File:..\\shared\\SizerGrip.cpp   File date:"));
}
} // namespace
