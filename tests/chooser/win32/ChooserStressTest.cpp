// What hosts and users do to a dialog that nobody expects.
#include "tests/CountHandles.h"
#include "tests/chooser/win32/CChooserFixture.h"
#include "tests/grid/win32/CGridFixture.h"

#include <chrono>
#include <random>

namespace
{
class ChooserStress : public CChooserFixture
{
protected:
    static void Click(int control, int x, int y)
    {
        const LPARAM point = MAKELPARAM(x, y);
        HWND target = control == ML_GRID ? Grid().GetList() : Item(control);
        SendMessageW(target, WM_MOUSEMOVE, 0, point);
        PostMessageW(target, WM_LBUTTONUP, 0, point); // a list waits for it while the button is down
        SendMessageW(target, WM_LBUTTONDOWN, MK_LBUTTON, point);
        SendMessageW(target, WM_LBUTTONUP, 0, point);
    }

    // However the window was treated, showing the chart gives it room and twice more changes nothing.
    static void ExpectChartComesBack()
    {
        const auto toggle = [] { SendMessageW(Item(ML_CHECK_SHOW_GRAPHICALLY), BM_CLICK, 0, 0); };
        toggle();
        if (!IsItemChecked(Dialog(), ML_CHECK_SHOW_GRAPHICALLY))
        {
            toggle();
        }
        const RECT chart = Place(ML_CHART);
        const SIZE size = WindowSize();
        EXPECT_GE(chart.bottom - chart.top, 172 / 2);
        toggle();
        ExpectNoOverlap();
        toggle();
        ExpectNoOverlap();
        const RECT again = Place(ML_CHART);
        EXPECT_TRUE(EqualRect(&again, &chart));
        EXPECT_EQ(WindowSize().cy, size.cy);
    }

    // One thing that a user may do at that moment.
    void Act(std::mt19937& random)
    {
        const auto pick = [&random](int count)
        { return static_cast<int>(random() % static_cast<unsigned>(count)); };
        const auto choose = [&](int combo, int entries)
        {
            SendMessageW(Item(combo), CB_SETCURSEL, static_cast<WPARAM>(pick(entries)), 0);
            SendMessageW(Dialog(), WM_COMMAND, MAKEWPARAM(combo, CBN_SELCHANGE), 0);
        };
        constexpr const char* numbers[] = {"0", "1e4", "x", "", "3.9", "-1"};
        constexpr WPARAM keys[] = {VK_DOWN, VK_UP, VK_HOME, VK_END, 'L', VK_SPACE};
        const int rows = Grid().GetModel().GetRowCount();
        const int row = 1 + pick(std::max(rows, 1));
        const std::function<void()> acts[] = {
            [&] { choose(ML_COMBO_TYPE, 4); },
            [&] { choose(ML_COMBO_TECHNOLOGY, 5); },
            [&] { choose(ML_COMBO_UNITS, 3); },
            [&]
            { Type(pick(2) == 0 ? ML_EDIT_THICKNESS_MINIMUM : ML_EDIT_THICKNESS_MAXIMUM, numbers[pick(6)]); },
            [&] { Press(ML_CHECK_SHOW_GRAPHICALLY); },
            [&] { Press(pick(2) == 0 ? ML_BUTTON_ASSIGN : ML_BUTTON_UNASSIGN); },
            [&] { Resize(pick(1500), pick(1200)); },
            [&] { ShowWindow(Dialog(), pick(2) == 0 ? SW_MAXIMIZE : SW_RESTORE); },
            [&] { DragBar(pick(900) - 400, pick(4) != 0); },
            [&] { Click(ML_CHART, pick(800), pick(300)); },
            [&] { Grid().GetModel().SelectRows(std::min(row, rows), std::min(row, rows), pick(2) == 0); },
            [&] { SendMessageW(Grid().GetList(), WM_KEYDOWN, keys[pick(6)], 0); },
            [&] { SendMessageW(Dialog(), WM_COMMAND, pick(9) == 0 ? ML_BUTTON_HELP : 9, 0); },
        };
        acts[pick(static_cast<int>(std::size(acts)))]();
    }
};

// Ten thousand acts in all.
class ChooserRandomActs : public ChooserStress, public testing::WithParamInterface<unsigned>
{
};
INSTANTIATE_TEST_SUITE_P(Of, ChooserRandomActs, testing::Range(0U, 5U));

TEST_P(ChooserRandomActs, TwoThousandRandomActsKeepEverythingInOrder)
{
    const auto now = std::chrono::steady_clock::now().time_since_epoch().count();
    const unsigned seed = static_cast<unsigned>(now) + GetParam();
    RecordProperty("seed", std::to_string(seed));
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::printf("seed %u\n", seed);
    std::mt19937 random(seed);
    const auto act = [&]
    {
        for (int i = 0; i < 100 && !HasFailure(); ++i)
        {
            Act(random);
        }
    };
    const auto look = [&]
    {
        ExpectNoOverlap();
        ExpectChartComesBack();
        IMaterial* const assigned = library.FindMaterial(Text(ML_EDIT_ASSIGNED).c_str());
        const std::vector<std::string> names = Names();
        const std::vector<std::string> markers = Column(COLUMNKEY_MARKER);
        for (std::size_t i = 0; i < names.size(); ++i)
        {
            EXPECT_EQ(markers[i] == "1", assigned != nullptr && names[i] == assigned->GetName()) << names[i];
        }
    };
    const auto play = [&](int steps)
    {
        Steps script;
        for (int i = 0; i < steps; ++i)
        {
            script.emplace_back(act);
            script.emplace_back(look);
        }
        GetChooserFilterSettings() = {};
        Choose(script);
    };
    play(2);
    const std::size_t gdi = CountGdiHandles();
    const std::size_t windows = CountWindows();
    play(18);
    EXPECT_LE(CountGdiHandles(), gdi + 20); // the system keeps some
    EXPECT_EQ(CountWindows(), windows);
}

TEST_F(ChooserStress, RoundsLeaveNeitherHandlesNorMemoryBehind)
{
    const auto use = [&]
    {
        ChooseFrom(ML_COMBO_UNITS, "Metric");
        CGridFixture::ClickHeader(Grid().GetList(), 5);
        Select(4, 4);
        Press(ML_BUTTON_ASSIGN);
    };
    ExpectRoundsLeaveNothingBehind(
        5, 15, [&](int) { Choose({use}); }, 100'000, 2);
}

// As a host's message handler may do while the first dialog asks for a number.
TEST_F(ChooserStress, ASecondDialogOpensFromAMessageOfTheFirst)
{
    IMaterial* inner = nullptr;
    messages.onShow = [&]
    { inner = RunChooser(library, library.FindMaterial("Flex"), MLMATERIAL_DIELECTRIC); };
    const auto first = [&]
    {
        SetFocus(Item(ML_EDIT_THICKNESS_MINIMUM));
        SetItemText(Dialog(), ML_EDIT_THICKNESS_MINIMUM, "none");
        SendMessageW(Dialog(), WM_COMMAND, ML_BUTTON_APPLY, 0);
    };
    const auto endInner = [&] { SendMessageW(Item(IDOK), BM_CLICK, 0, 0); };
    const auto endOuter = [&]
    {
        SetItemText(Dialog(), ML_EDIT_THICKNESS_MINIMUM, "0"); // or it would ask again
        Press(IDOK);
    };
    IMaterial* const prepreg = library.FindMaterial("Prepreg");
    EXPECT_EQ(Choose({first, endInner, endOuter}, MLMATERIAL_DIELECTRIC, prepreg), prepreg);
    EXPECT_EQ(inner, library.FindMaterial("Flex"));
}

TEST_F(ChooserStress, ShowsNamesOfAnyLengthAndWithAnyCharacter)
{
    const std::string longName(10'000, 'n');
    for (const char* const name : {"", "a & b && c", "tab\there", "\xB5m \xE9\xFF", longName.c_str()})
    {
        AddTable(AddMaterial(library, MLMATERIAL_DIELECTRIC, name, name), MLTABLE_ER, 25.0, {4.0, 3.9});
    }
    const auto look = [&]
    {
        EXPECT_EQ(Names()[0], longName);
        const char* const unnamed = ""; // no look-up finds it
        for (const auto& [row, assigned] :
             {std::pair(1, longName.c_str()), {2, "\xB5m \xE9\xFF"}, {5, unnamed}, {4, "a & b && c"}})
        {
            Select(row, row);
            Press(ML_BUTTON_ASSIGN);
            EXPECT_EQ(Text(ML_EDIT_ASSIGNED), assigned);
        }
        RedrawWindow(Dialog(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN);
        Press(IDOK);
    };
    EXPECT_EQ(Choose({look}), library.FindMaterial("a & b && c"));
}

TEST_F(ChooserStress, OpensOverAHundredThousandMaterials)
{
    for (int i = 0; i < 100'000; ++i)
    {
        CMaterial& material =
            AddMaterial(library, MLMATERIAL_DIELECTRIC, ("Laminate " + std::to_string(i)).c_str(), "many");
        material.SetAttribute(MLATTR_THICKNESS, 1e-4);
        AddTable(material, MLTABLE_ER, 25.0, {4.0, 3.9});
    }
    const auto use = [&]
    {
        EXPECT_EQ(Grid().GetModel().GetRowCount(), 100'005);
        SetFocus(Grid().GetList());
        SendMessageW(Grid().GetList(), WM_KEYDOWN, VK_DOWN, 0);
        Press(ML_BUTTON_ASSIGN);
        EXPECT_EQ(Text(ML_EDIT_ASSIGNED), "Laminate 99999");
        Press(IDOK);
    };
    EXPECT_EQ(Choose({use}), library.FindMaterial("Laminate 99999"));
}
} // namespace
