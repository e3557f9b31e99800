#include "grid/SortRows.h"
#include "tests/grid/win32/CGridFixture.h"

#include <cstdlib>
#include <cstring>
#include <gmock/gmock.h>
#include <new>

namespace
{
int allocationsBeforeFailure = -1; // negative: none fails
}

void* operator new(std::size_t size)
{
    void* const memory =
        allocationsBeforeFailure >= 0 && allocationsBeforeFailure-- == 0 ? nullptr : std::malloc(size);
    return memory != nullptr ? memory : throw std::bad_alloc();
}
void operator delete(void* memory) noexcept
{
    std::free(memory);
}
void operator delete(void* memory, std::size_t /*size*/) noexcept
{
    std::free(memory);
}

namespace
{
using testing::ElementsAre;

// Columns: 1 a number, 2 hidden, 3 a text; sorts by headers and counts what it is told.
class CTestGrid final : public CGXGridWnd
{
public:
    explicit CTestGrid(HWND control)
    {
        Attach(control);
        Initialise();
    }

    void Fill(const std::vector<const char*>& names)
    {
        CGridModel& cells = GetModel();
        CGridUpdateScope update(cells);
        cells.Reset(3);
        cells.HideColumn(2, true);
        cells.SetHeaderStyle(1, 1, GridValueType::Number);
        cells.SetHeaderText(1, "No.");
        cells.SetHeaderText(3, "Name");
        cells.SetRowCount(static_cast<int>(names.size()));
        for (int row = 1; row <= cells.GetRowCount(); ++row)
        {
            cells.SetCell(row, 1, 0, std::to_string(row));
            cells.SetCell(row, 3, 0, names[static_cast<std::size_t>(row) - 1]);
        }
        update.Finish();
    }

    [[nodiscard]] std::vector<int> GetListSelection() const
    {
        std::vector<int> items;
        for (int item = -1; (item = ListView_GetNextItem(GetList(), item, LVNI_SELECTED)) >= 0;)
        {
            items.push_back(item);
        }
        return items;
    }

    int selectionChanges = 0;
    int chosen = 0;
    mutable int descriptions = 0;
    std::vector<GridCell> clicks;
    std::vector<GridCell> currentCells;

protected:
    void OnSelectionChanged() override { ++selectionChanges; }
    void OnChosenRow() override { ++chosen; }
    void OnMovedCurrentCell(GridCell cell) override { currentCells.push_back(cell); }
    [[nodiscard]] std::string DescribeCell(GridCell cell) const override
    {
        ++descriptions;
        return std::strcmp(GetModel().GetText(cell.row, cell.column), "told") == 0 ? "more" : "";
    }
    bool OnClickedCell(GridCell cell) override
    {
        clicks.push_back(cell);
        if (cell.row == 0)
        {
            GetModel().GetSortKeys().ClickHeader(cell.column);
            SortRows(GetModel(), std::strcmp);
        }
        return cell.row == 0;
    }
};

class GridWindow : public testing::Test
{
protected:
    CGridFixture window;
    CTestGrid grid{window.GetControl()};
};

TEST_F(GridWindow, LeavesHiddenColumnsOut)
{
    grid.Fill({"b", "a\tc\n", "\x80 & co"});
    const HWND list = grid.GetList();
    const auto alignment = [list](WPARAM column)
    {
        HDITEMW item{};
        item.mask = HDI_FORMAT;
        SendMessageW(ListView_GetHeader(list), HDM_GETITEMW, column, reinterpret_cast<LPARAM>(&item));
        return item.fmt & HDF_JUSTIFYMASK;
    };
    EXPECT_EQ(CGridFixture::GetHeaderTexts(list), "No.|Name");
    EXPECT_EQ(ListView_GetItemCount(list), 3);
    EXPECT_EQ(CGridFixture::GetItemText(list, 1, 1), "a c ");
    EXPECT_EQ(CGridFixture::GetItemText(list, 2, 1), "\x80 & co");
    EXPECT_EQ(CGridFixture::GetItemText(list, 3, 1), "") << "beyond the last row";

    grid.GetModel().HideColumn(1, true);
    grid.GetModel().HideColumn(2, false);
    grid.GetModel().SetHeaderText(2, "Second");
    EXPECT_EQ(CGridFixture::GetHeaderTexts(list), "Second|Name");
    EXPECT_EQ(CGridFixture::GetItemText(list, 0, 1), "b");
    grid.GetModel().SetHeaderStyle(3, 3, GridValueType::Number);
    EXPECT_EQ(alignment(1), HDF_RIGHT);
    grid.GetModel().GetSortKeys().ClickHeader(3);
    SortRows(grid.GetModel(), std::strcmp);
    grid.GetModel().SetHeaderText(3, "Third");
    EXPECT_EQ(CGridFixture::GetHeaderTexts(list), "Second|Third^");
    EXPECT_EQ(alignment(1), HDF_RIGHT);
}

TEST_F(GridWindow, TellsOfEachChangeOnce)
{
    grid.Fill({"a", "b", "c", "d"});
    const HWND list = grid.GetList();
    const auto count = [&](const std::function<void()>& act)
    {
        grid.selectionChanges = 0;
        act();
        return grid.selectionChanges;
    };
    CGridFixture::ClickCell(list, 0, 0);
    EXPECT_EQ(count([&] { CGridFixture::ClickCell(list, 2, 0); }), 1);
    EXPECT_EQ(grid.GetListSelection(), std::vector{2});
    EXPECT_EQ(count([&] { CGridFixture::PressKey(list, VK_UP); }), 1);
    EXPECT_EQ(count([&] { CGridFixture::PressKey(list, VK_HOME); }), 1);
    EXPECT_EQ(count([&] { CGridFixture::ClickCell(list, 2, 0, MK_SHIFT); }), 1);
    EXPECT_EQ(count([&] { CGridFixture::PressKey(list, 'A', true); }), 1);
    EXPECT_EQ(grid.GetModel().GetSelection().GetSelectedCount(), 4);
}

TEST_F(GridWindow, SortsWithItsArrowsAndTheSelectionFollows)
{
    grid.Fill({"b", "c", "a"});
    const HWND list = grid.GetList();
    CGridFixture::ClickCell(list, 1, 1);
    EXPECT_EQ(grid.GetModel().GetSelection().GetOnlyRow(), 2);
    EXPECT_THAT(grid.currentCells, ElementsAre(GridCell{2, 3}));
    EXPECT_EQ(CGridFixture::GetHeaderTexts(list), "No.|Name");

    CGridFixture::ClickHeader(list, 1);
    EXPECT_EQ(CGridFixture::GetHeaderTexts(list), "No.|Name^");
    EXPECT_EQ(CGridFixture::GetItemText(list, 0, 1), "a");
    EXPECT_THAT(grid.GetListSelection(), ElementsAre(2)) << "the row of c";
    EXPECT_EQ(ListView_GetNextItem(list, -1, LVNI_FOCUSED), 2);
    CGridFixture::ClickHeader(list, 1);
    EXPECT_EQ(CGridFixture::GetHeaderTexts(list), "No.|Namev");
    EXPECT_THAT(grid.GetListSelection(), ElementsAre(0));
    EXPECT_EQ(grid.selectionChanges, 1) << "the same row is selected as before";
    EXPECT_THAT(grid.clicks, ElementsAre(GridCell{2, 3}, GridCell{0, 3}, GridCell{0, 3}));

    grid.Fill({"x"});
    EXPECT_EQ(CGridFixture::GetHeaderTexts(list), "No.|Name") << "the new rows are not sorted";
    EXPECT_TRUE(grid.GetListSelection().empty());
    EXPECT_EQ(grid.selectionChanges, 2);
}

TEST_F(GridWindow, FollowsTheSelectionOfTheUserAndShowsThatOfTheProgram)
{
    grid.Fill({"a", "b", "c", "d", "e"});
    const HWND list = grid.GetList();
    const auto selected = [this] { return grid.GetModel().GetSelection().GetRows(); };
    CGridFixture::ClickCell(list, 3, 0);
    EXPECT_THAT(selected(), ElementsAre(4));
    CGridFixture::PressKey(list, VK_UP);
    EXPECT_THAT(selected(), ElementsAre(3));
    EXPECT_EQ(grid.GetModel().GetSelection().GetCurrentCell(), (GridCell{3, 1}));
    CGridFixture::PressKey(list, 'A', true);
    EXPECT_THAT(selected(), ElementsAre(1, 2, 3, 4, 5));
    EXPECT_EQ(grid.GetListSelection().size(), 5U);
    CGridFixture::PressKey(list, VK_END);
    EXPECT_THAT(selected(), ElementsAre(5));

    const int before = grid.selectionChanges;
    grid.GetModel().SelectRows(2, 3, true);
    EXPECT_THAT(grid.GetListSelection(), ElementsAre(1, 2, 4));
    EXPECT_EQ(grid.selectionChanges, before + 1);
    grid.GetModel().SetRowCount(2);
    EXPECT_TRUE(grid.GetListSelection().empty());
    EXPECT_EQ(ListView_GetNextItem(list, -1, LVNI_FOCUSED), -1);
    EXPECT_EQ(ListView_GetItemCount(list), 2);
}

TEST_F(GridWindow, CopiesTheSelectedRowsInTheOrderOfTheColumnsOnTheScreen)
{
    grid.Fill({"a\tb", "\x80", "c"});
    const HWND list = grid.GetList();
    int order[] = {1, 0};
    ListView_SetColumnOrderArray(list, 2, order);
    grid.GetModel().SelectRows(1, 2, true);
    CGridFixture::PressKey(list, VK_INSERT, true);
    constexpr const wchar_t* copied = L"Name\tNo.\r\na b\t1\r\n\u20AC\t2\r\n";
    EXPECT_EQ(CGridFixture::GetClipboardText(), copied);
    grid.GetModel().SelectRows(1, 2, false);
    CGridFixture::PressKey(list, 'C', true);
    EXPECT_EQ(CGridFixture::GetClipboardText(), copied) << "nothing is selected";
}

TEST_F(GridWindow, FindsRowsByTheFirstCharactersOfTheirNames)
{
    grid.Fill({"alpha", "b one", "b two", "Charlie", "bravo"});
    const auto type = [&](const wchar_t* text)
    {
        for (; *text != L'\0'; ++text)
        {
            SendMessageW(grid.GetList(), WM_CHAR, *text, 1);
        }
        const HWND list = grid.GetList();
        EXPECT_THAT(grid.GetListSelection(), ElementsAre(ListView_GetNextItem(list, -1, LVNI_FOCUSED)));
        return grid.GetModel().GetSelection().GetOnlyRow();
    };
    EXPECT_EQ(type(L"b t"), 3);
    EXPECT_EQ(type(L"x"), 3) << "nothing begins so";
}

TEST_F(GridWindow, SortsAndChoosesByTheKeyboard)
{
    grid.Fill({"b", "a"});
    const HWND list = grid.GetList();
    const auto press = [&](WPARAM key, bool shift)
    {
        BYTE state[256] = {};
        state[VK_CONTROL] = 0x80;
        state[VK_SHIFT] = shift ? 0x80 : 0;
        SetKeyboardState(state);
        EXPECT_EQ(key == VK_RETURN, (SendMessageW(list, WM_GETDLGCODE, key, 0) & DLGC_WANTMESSAGE) != 0);
        SendMessageW(list, WM_KEYDOWN, key, 0);
        state[VK_CONTROL] = state[VK_SHIFT] = 0;
        SetKeyboardState(state);
    };
    press(VK_RETURN, true);
    EXPECT_TRUE(grid.clicks.empty()) << "no column is chosen";
    for (const WPARAM key : {VK_LEFT, VK_RIGHT, VK_RIGHT, VK_RETURN})
    {
        press(key, true);
    }
    EXPECT_EQ(CGridFixture::GetHeaderTexts(list), "No.|Name^");
    EXPECT_EQ(CGridFixture::GetItemText(list, 0, 1), "a");
    const auto background = [&](int subItem)
    {
        NMLVCUSTOMDRAW draw{};
        draw.nmcd.hdr = {list, 1, NM_CUSTOMDRAW};
        draw.nmcd.dwDrawStage = CDDS_ITEMPREPAINT | CDDS_SUBITEM;
        draw.iSubItem = subItem;
        SendMessageW(window.GetControl(), WM_NOTIFY, 1, reinterpret_cast<LPARAM>(&draw));
        return draw.clrTextBk;
    };
    EXPECT_EQ(background(0), GetSysColor(COLOR_WINDOW));
    EXPECT_NE(background(1), background(0)) << "nobody sees which column is chosen";
    press(VK_LEFT, true);
    press(VK_RETURN, true);
    EXPECT_EQ(CGridFixture::GetHeaderTexts(list), "No.0|Name1");
    EXPECT_EQ(grid.chosen, 0);
    press(VK_RETURN, false);
    EXPECT_EQ(grid.chosen, 1);
    CGridFixture::ClickCell(list, 1, 0);
    SendMessageW(list, WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(5, 30));
    EXPECT_EQ(grid.chosen, 2);

    grid.GetModel().SetHeaderText(3, "Name of it");
    EXPECT_EQ(CGridFixture::GetHeaderTexts(list), "No.0|Name of it1");
    grid.GetModel().HideColumn(1, true);
    EXPECT_EQ(CGridFixture::GetHeaderTexts(list), "Name of it^") << "no rank of a single key";
    grid.GetModel().SetRowCount(2);
    EXPECT_EQ(CGridFixture::GetHeaderTexts(list), "Name of it");
}

TEST_F(GridWindow, FitsAColumnToItsWidestCell)
{
    const std::string longName(400, 'W');
    grid.Fill({"short", longName.c_str()});
    const HWND list = grid.GetList();
    const int initial = ListView_GetColumnWidth(list, 1);
    EXPECT_LT(initial, 600) << "a new column does not fill the window";
    NMHEADERW divider{};
    divider.hdr = {ListView_GetHeader(list), 0, HDN_DIVIDERDBLCLICKW};
    divider.iItem = 1;
    SendMessageW(list, WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&divider));
    EXPECT_GT(ListView_GetColumnWidth(list, 1), 259 * 5);
    grid.GetModel().SetCell(2, 3, 0, "w");
    SendMessageW(list, WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&divider));
    EXPECT_LT(ListView_GetColumnWidth(list, 1), 100);
    divider.iItem = 7;
    SendMessageW(list, WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&divider));
}

TEST_F(GridWindow, ShowsTheWholeTextOfACutOffCell)
{
    const std::string longName(3000, 'n');
    grid.Fill({"short", longName.c_str()});
    const HWND list = grid.GetList();
    HWND tip = nullptr;
    while ((tip = FindWindowExW(nullptr, tip, TOOLTIPS_CLASSW, nullptr)) != nullptr &&
           GetWindow(tip, GW_OWNER) == nullptr)
    {
    }
    ASSERT_NE(tip, nullptr);
    const auto textOver = [&](int item)
    {
        RECT area{};
        ListView_GetSubItemRect(list, item, 1, LVIR_LABEL, &area);
        SendMessageW(list, WM_MOUSEMOVE, 0, MAKELPARAM(area.left + 3, area.top + 3));
        NMTTDISPINFOW info{};
        info.hdr = {tip, 1, TTN_GETDISPINFOW};
        SendMessageW(list, WM_NOTIFY, 1, reinterpret_cast<LPARAM>(&info));
        return info.lpszText != nullptr ? std::wstring(info.lpszText) : std::wstring();
    };
    EXPECT_EQ(textOver(0), L"");
    EXPECT_EQ(textOver(1), std::wstring(2000, L'n') + L"\u2026");
    grid.GetModel().SetCell(2, 3, 0, "short now");
    EXPECT_EQ(textOver(1), L"");
    ListView_SetColumnWidth(list, 0, 640);
    EXPECT_EQ(textOver(0), L"short") << "the window's edge cuts it off";
    ListView_SetColumnWidth(list, 0, 50);
    grid.GetModel().SetCell(1, 3, 0, "told");
    grid.descriptions = 0;
    EXPECT_EQ(textOver(0), L"more");
    EXPECT_EQ(textOver(0), L"more");
    EXPECT_EQ(grid.descriptions, 1) << "it may take long";
}

// Counts the changes of rows that a list is told.
struct CChangeCounter final : CWnd
{
    int count = 0;

    LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) override
    {
        count += message == LVM_SETITEMSTATE ? 1 : 0;
        return CWnd::HandleMessage(message, wParam, lParam);
    }
};

TEST_F(GridWindow, RestoresALargeSelectionByWhatItLacks)
{
    grid.Fill(std::vector<const char*>(1000, "name"));
    grid.GetModel().SelectRows(1, 998, true);
    CChangeCounter changed;
    ASSERT_TRUE(changed.Attach(grid.GetList()));
    CGridFixture::ClickHeader(grid.GetList(), 0);
    EXPECT_EQ(grid.GetListSelection().size(), 998U);
    EXPECT_LT(changed.count, 10);
}

TEST_F(GridWindow, FollowsItsUserAgainAfterMemoryRanOut)
{
    grid.Fill({"a", "b", "c"});
    grid.GetModel().SetCurrentCell({1, 1});
    const std::string header(100, 'h'); // the model moves it, the list copies it
    for (int allocations = 1; allocations < 5; ++allocations)
    {
        std::string moved = header + std::to_string(allocations);
        allocationsBeforeFailure = allocations;
        EXPECT_THROW(grid.GetModel().SetHeaderText(3, std::move(moved)), std::bad_alloc) << allocations;
        allocationsBeforeFailure = -1;
        CGridFixture::PressKey(grid.GetList(), allocations % 2 != 0 ? VK_DOWN : VK_UP);
        EXPECT_EQ(grid.GetModel().GetSelection().GetOnlyRow(), allocations % 2 != 0 ? 2 : 1) << allocations;
    }
}

TEST(GridWindowLife, GridAndControlGoInAnyOrder)
{
    for (const bool gridFirst : {true, false})
    {
        auto window = std::make_unique<CGridFixture>();
        auto grid = std::make_unique<CTestGrid>(window->GetControl());
        grid->Fill({"a"});
        const HWND list = grid->GetList();
        if (gridFirst)
        {
            grid.reset();
            EXPECT_FALSE(IsWindow(list));
            EXPECT_TRUE(IsWindow(window->GetControl()));
        }
        window.reset();
        EXPECT_FALSE(IsWindow(list));
        if (grid != nullptr)
        {
            grid->GetModel().SetRowCount(5); // without a window
            grid->GetModel().SelectRows(2, 2, true);
            EXPECT_EQ(grid->selectionChanges, 1);
        }
    }
}
} // namespace
