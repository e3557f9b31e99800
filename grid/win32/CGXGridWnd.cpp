#include "grid/win32/CGXGridWnd.h"

#include "framework/WindowScopes.h"

namespace
{
bool IsKeyDown(int key)
{
    return GetKeyState(key) < 0;
}

bool IsControlKeyDown()
{
    return IsKeyDown(VK_CONTROL) && !IsKeyDown(VK_MENU);
}
} // namespace

void RegisterGridWindowClass()
{
    INITCOMMONCONTROLSEX controls = {sizeof controls, ICC_LISTVIEW_CLASSES};
    InitCommonControlsEx(&controls);
    RegisterPlainWindowClass(gridWindowClass);
}

CGXGridWnd::CGXGridWnd() : list(model, [this](GridCell cell) { return DescribeCell(cell); })
{
    model.SetListener(this);
}

CGXGridWnd::~CGXGridWnd()
{
    model.SetListener(nullptr);
    if (const HWND window = list.GetHandle())
    {
        list.Detach();
        DestroyWindow(window);
    }
}

void CGXGridWnd::Initialise()
{
    if (list.GetHandle() != nullptr || GetHandle() == nullptr)
    {
        return;
    }
    // The list takes the place of its parent in the order of the Tab key.
    SetWindowLongPtrW(GetHandle(), GWL_EXSTYLE,
                      GetWindowLongPtrW(GetHandle(), GWL_EXSTYLE) | WS_EX_CONTROLPARENT);
    SetWindowLongPtrW(GetHandle(), GWL_STYLE, GetWindowLongPtrW(GetHandle(), GWL_STYLE) & ~WS_TABSTOP);
    const auto font = reinterpret_cast<HFONT>(SendMessageW(GetParent(GetHandle()), WM_GETFONT, 0, 0));
    list.Create(GetHandle(), font);
    list.Show(GRIDCHANGE_COLUMNS | GRIDCHANGE_ROWS);
}

LRESULT CGXGridWnd::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam)
{
    const HWND window = list.GetHandle();
    if (window == nullptr)
    {
        return CWnd::HandleMessage(message, wParam, lParam);
    }
    switch (message)
    {
    case WM_NOTIFY:
        if (reinterpret_cast<NMHDR*>(lParam)->hwndFrom == window)
        {
            return OnNotify(*reinterpret_cast<NMHDR*>(lParam), lParam);
        }
        break;
    case WM_SIZE:
    {
        const LRESULT answer = Default(message, wParam, lParam);
        SetWindowPos(window, nullptr, 0, 0, LOWORD(lParam), HIWORD(lParam), SWP_NOZORDER | SWP_NOACTIVATE);
        InvalidateRect(window, nullptr, FALSE);
        return answer;
    }
    case WM_SETFOCUS:
        SetFocus(window);
        return 0;
    case WM_GETFONT:
    case WM_SETFONT:
        return SendMessageW(window, message, wParam, lParam);
    case WM_ENABLE:
        EnableWindow(window, wParam != FALSE ? TRUE : FALSE);
        break;
    case WM_SYSCOLORCHANGE:
        SendMessageW(window, message, wParam, lParam);
        break;
    default:
        break;
    }
    return CWnd::HandleMessage(message, wParam, lParam);
}

LRESULT CGXGridWnd::OnNotify(NMHDR& notification, LPARAM lParam)
{
    switch (notification.code)
    {
    case LVN_GETDISPINFOW:
        list.FillDisplayInfo(*reinterpret_cast<NMLVDISPINFOW*>(lParam));
        return 0;
    case NM_CUSTOMDRAW:
        return list.Draw(*reinterpret_cast<NMLVCUSTOMDRAW*>(lParam));
    case LVN_ODFINDITEMW:
        return list.FindItem(*reinterpret_cast<NMLVFINDITEMW*>(lParam));
    case LVN_ITEMCHANGED:
        OnItemChanged(*reinterpret_cast<NMLISTVIEW*>(lParam));
        return 0;
    case LVN_ODSTATECHANGED:
        OnItemRangeChanged(*reinterpret_cast<NMLVODSTATECHANGE*>(lParam));
        return 0;
    case LVN_KEYDOWN:
        OnKeyDown(reinterpret_cast<NMLVKEYDOWN*>(lParam)->wVKey);
        return 0;
    case LVN_COLUMNCLICK:
        OnClickedCell({0, list.GetColumn(reinterpret_cast<NMLISTVIEW*>(lParam)->iSubItem)});
        return 0;
    case NM_DBLCLK:
        if (reinterpret_cast<NMITEMACTIVATE*>(lParam)->iItem >= 0)
        {
            OnChosenRow();
        }
        return 0;
    case NM_CLICK:
        FollowSelectionOfList();
        if (const auto& click = *reinterpret_cast<NMITEMACTIVATE*>(lParam); click.iItem >= 0)
        {
            SetCurrentRow(click.iItem + 1);
            OnClickedCell({click.iItem + 1, list.GetColumn(click.iSubItem)});
        }
        return 0;
    default:
        return Default(WM_NOTIFY, notification.idFrom, lParam);
    }
}

void CGXGridWnd::OnItemChanged(const NMLISTVIEW& change)
{
    if (list.IsUpdating() || (change.uChanged & LVIF_STATE) == 0)
    {
        return;
    }
    const UINT changed = change.uOldState ^ change.uNewState;
    if ((changed & LVIS_SELECTED) != 0)
    {
        const CFlagScope scope(following);
        const bool all = change.iItem < 0;
        model.SelectRows(all ? 1 : change.iItem + 1, all ? model.GetRowCount() : change.iItem + 1,
                         (change.uNewState & LVIS_SELECTED) != 0);
    }
    if ((changed & LVIS_FOCUSED) != 0 && (change.uNewState & LVIS_FOCUSED) != 0)
    {
        SetCurrentRow(change.iItem + 1);
    }
}

void CGXGridWnd::OnItemRangeChanged(const NMLVODSTATECHANGE& change)
{
    if (!list.IsUpdating() && ((change.uOldState ^ change.uNewState) & LVIS_SELECTED) != 0)
    {
        const CFlagScope scope(following);
        model.SelectRows(change.iFrom + 1, change.iTo + 1, (change.uNewState & LVIS_SELECTED) != 0);
    }
}

void CGXGridWnd::OnKeyDown(WORD key)
{
    if (IsControlKeyDown() && key == 'A')
    {
        list.SelectAll();
        FollowSelectionOfList();
    }
    else if (IsControlKeyDown() && key == VK_RETURN && !IsKeyDown(VK_SHIFT))
    {
        OnChosenRow();
    }
    else if (IsControlKeyDown() && (key == 'C' || key == VK_INSERT))
    {
        if (const std::vector<int> rows = model.GetSelection().GetRows(); !rows.empty())
        {
            list.Copy(rows);
        }
    }
}

// Makes up for changes that the list did not notify.
void CGXGridWnd::FollowSelectionOfList()
{
    if (list.CountSelectedRows() == model.GetSelection().GetSelectedCount())
    {
        return;
    }
    const CFlagScope scope(following);
    const std::vector<int> rows = list.ReadSelectedRows();
    CGridUpdateScope update(model);
    model.SelectRows(1, model.GetRowCount(), false);
    for (const int row : rows)
    {
        model.SelectRows(row, row, true);
    }
    update.Finish();
}

void CGXGridWnd::SetCurrentRow(int row)
{
    const CFlagScope scope(following);
    const int pressed = list.GetPressedColumn();
    model.SetCurrentCell({row, pressed != 0 ? pressed : list.GetColumn(0)});
}

void CGXGridWnd::OnGridChanged(unsigned changes)
{
    constexpr unsigned selection = GRIDCHANGE_SELECTION | GRIDCHANGE_CURRENT;
    const bool isShown = following || list.IsHandlingInput();
    if (const unsigned shown = isShown ? changes & ~selection : changes; shown != 0)
    {
        list.Show(shown);
    }
    if ((changes & GRIDCHANGE_CURRENT) != 0)
    {
        OnMovedCurrentCell(model.GetSelection().GetCurrentCell());
    }
    if ((changes & GRIDCHANGE_SELECTION) != 0)
    {
        OnSelectionChanged();
    }
}
