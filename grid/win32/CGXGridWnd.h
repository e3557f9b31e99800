#pragma once

#include "framework/CWnd.h"
#include "grid/CGridModel.h"
#include "grid/win32/CGridList.h"

// The window class of controls that a CGXGridWnd is attached to. Registering it twice does no harm.
inline constexpr const wchar_t* gridWindowClass = L"CGXGridWnd";
void RegisterGridWindowClass();

// A window that shows a grid. It is attached to a control of the class gridWindowClass, whose area it fills
// with a list view; keyboard, scrolling, themes and screen readers are the list view's. The columns can be
// dragged and resized, a double-click on the right edge of a header fits its column, typing finds a row,
// Ctrl+C copies the selected rows, Ctrl+A selects all, and a tip shows the text of a cell that is cut off or
// what there is to say of a cell.
// Every cell may become the current one, none can be edited.
class CGXGridWnd : public CWnd, private IGridListener
{
public:
    CGXGridWnd();
    ~CGXGridWnd() override;

    // Makes the list view; needs a window to be attached to. Does nothing when that was done.
    void Initialise();

    [[nodiscard]] CGridModel& GetModel() { return model; }
    [[nodiscard]] const CGridModel& GetModel() const { return model; }

    // Typing finds rows by their texts in that column; 0 stands for the first text column on the screen.
    void SetSearchColumn(int column) { list.SetSearchColumn(column); }

    // Columns as users have moved and widened them; see CGridList.
    [[nodiscard]] std::vector<ColumnPlace> ReadColumnPlaces() const { return list.ReadColumnPlaces(); }
    void ShowColumnPlaces(const std::vector<ColumnPlace>& places) { list.ShowColumnPlaces(places); }

    // The list view, null before Initialise.
    [[nodiscard]] HWND GetList() const { return list.GetHandle(); }

    [[nodiscard]] const char* GetRuntimeClassName() const override { return "CGXGridWnd"; }

protected:
    // Other rows are selected now, or another row stands for the selection.
    virtual void OnSelectionChanged() {}

    // The left button was clicked on a cell; on a header when its row is 0. True when that was handled.
    virtual bool OnClickedCell(GridCell) { return false; }

    // The user wants the selected row: a double-click on it, or Ctrl+Enter.
    virtual void OnChosenRow() {}

    // Another cell is current now.
    virtual void OnMovedCurrentCell(GridCell) {}

    // What the tip of a cell says instead of its text. With nothing, it is the text of a cell that is cut
    // off.
    [[nodiscard]] virtual std::string DescribeCell(GridCell) const { return {}; }

    LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    void OnGridChanged(unsigned changes) override;

    LRESULT OnNotify(NMHDR& notification, LPARAM lParam);
    void OnItemChanged(const NMLISTVIEW& change);
    void OnItemRangeChanged(const NMLVODSTATECHANGE& change);
    void OnKeyDown(WORD key);
    void FollowSelectionOfList();
    void SetCurrentRow(int row);

    CGridModel model;
    CGridList list;
    bool following = false; // the selection of the list, which needs no telling then
};
