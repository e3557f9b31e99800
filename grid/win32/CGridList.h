#pragma once

#include "framework/CWnd.h"
#include "grid/CGridModel.h"
#include "grid/CTypedSearch.h"
#include "grid/ColumnPlaces.h"
#include "grid/win32/CCellTip.h"
#include "grid/win32/CSortMarks.h"

#include <commctrl.h>
#include <functional>
#include <string>
#include <utility>
#include <vector>

// The system's list view as the view of a grid: it asks for the texts it paints, so its work does not grow
// with the number of rows. Hidden columns are no columns of the list; items and subitems of the list count
// from 0, rows and columns of the grid from 1.
class CGridList : public CWnd
{
public:
    // `describe` says what the tip of a cell says; where that is nothing, the tip is the text of a cell that
    // is cut off.
    CGridList(CGridModel& gridModel, std::function<std::string(GridCell)> describe)
        : model(&gridModel), describeCell(std::move(describe))
    {
    }

    // Makes the list as the only child of `parent`, which gets its notifications. Throws std::bad_alloc when
    // the system has no room for another window.
    void Create(HWND parent, HFONT font);

    // Brings the list in line with what changed in the grid: a combination of GRIDCHANGE.
    void Show(unsigned changes);

    // True while the list is being brought in line: what it notifies then is no doing of the user.
    [[nodiscard]] bool IsUpdating() const { return updating; }

    // True while the list follows its user: what the grid then learns from it is shown already.
    [[nodiscard]] bool IsHandlingInput() const { return handlingInput; }

    // The column of the grid that a subitem shows, 0 for none.
    [[nodiscard]] int GetColumn(int subItem) const;

    // Answers to notifications.
    void FillDisplayInfo(NMLVDISPINFOW& info) const;
    [[nodiscard]] LRESULT Draw(NMLVCUSTOMDRAW& draw) const;
    [[nodiscard]] LRESULT FindItem(const NMLVFINDITEMW& search) const;

    // The selected rows of the list, counted from 1.
    [[nodiscard]] std::vector<int> ReadSelectedRows() const;
    [[nodiscard]] int CountSelectedRows() const;
    void SelectAll();

    // The column of the grid that typing searches; 0, at first, is the first one on the screen that holds
    // text.
    void SetSearchColumn(int column) { searchColumn = column; }

    // Puts the rows, with the headers, on the clipboard in the order of the columns on the screen.
    void Copy(const std::vector<int>& rows) const;

    // Where the columns stand on the screen, and how wide they are. Unless `places` names each column of the
    // list once, nothing happens.
    [[nodiscard]] std::vector<ColumnPlace> ReadColumnPlaces() const;
    void ShowColumnPlaces(const std::vector<ColumnPlace>& places);

    // Makes the column as wide as its widest cell.
    void FitColumn(int subItem);

    // The column of the grid on which the left button was pressed last, 0 for none.
    [[nodiscard]] int GetPressedColumn() const { return pressedColumn; }

protected:
    LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    static constexpr int identifier = 1; // of the list in its parent

    void Update(unsigned changes, bool ofSelection);
    void ShowColumns();
    void ShowHeaderTexts();
    void ShowSortMarks();
    void ShowRowCount();
    void ShowSelection();

    // The text that a cell shows, on one line.
    [[nodiscard]] std::wstring GetShownText(int item, int subItem) const;
    [[nodiscard]] int FindSubItem(int column) const; // -1: it is not shown
    [[nodiscard]] std::vector<int> GetColumnsInScreenOrder() const;
    [[nodiscard]] LVHITTESTINFO HitTest(POINT point) const;
    [[nodiscard]] int MeasureText(HDC context, std::string_view text) const;
    [[nodiscard]] int MeasureHeader(int column) const;
    [[nodiscard]] int MeasureCells(int column, int lastRow) const;
    [[nodiscard]] int GetPadding() const;
    void FitNewColumns();
    void SetItemState(int item, UINT state, UINT mask);

    LRESULT HandleInput(UINT message, WPARAM wParam, LPARAM lParam);
    [[nodiscard]] int GetSearchColumn() const;
    [[nodiscard]] bool IsSearchedFor(wchar_t character) const;
    void SearchFor(wchar_t character);
    void SelectOnly(int row);
    [[nodiscard]] bool HandleColumnKey(WPARAM key);
    void ChooseColumn(int step);
    void ClickChosenHeader();
    void PointTipAt(POINT point);
    [[nodiscard]] std::wstring MakeTip(GridCell cell) const;
    [[nodiscard]] RECT GetVisibleArea(GridCell cell) const;

    CGridModel* model;
    std::function<std::string(GridCell)> describeCell;
    std::vector<int> columns;         // of the grid; one for each subitem
    std::vector<std::string> headers; // their texts as shown
    bool updating = false;
    bool handlingInput = false;
    bool columnsAreNew = false; // and have not been fitted to any rows yet
    int pressedColumn = 0;
    int searchColumn = 0;
    int chosenColumn = 0; // by Ctrl+Shift+Left and Right, 0 for none
    CTypedSearch typedSearch;
    CSortMarks sortMarks;
    CCellTip tip;
};
