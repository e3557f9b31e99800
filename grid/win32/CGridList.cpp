#include "grid/win32/CGridList.h"

#include "framework/Clipboard.h"
#include "framework/DrawingScopes.h"
#include "framework/ModuleResources.h"
#include "framework/TextConversion.h"
#include "framework/WindowScopes.h"
#include "grid/GridTexts.h"
#include "grid/win32/CMeasureScope.h"

#include <algorithm>
#include <new>
#include <utility>
#include <windowsx.h>

namespace
{
constexpr const wchar_t* mark = L"\u2022"; // which every font has

// Between window and highlight, so that it differs from both in every theme and texts stay readable on it.
COLORREF GetChosenColumnColour()
{
    const COLORREF window = GetSysColor(COLOR_WINDOW);
    const COLORREF highlight = GetSysColor(COLOR_HIGHLIGHT);
    const auto mix = [](int most, int some) { return (5 * most + some) / 6; };
    return RGB(mix(GetRValue(window), GetRValue(highlight)), mix(GetGValue(window), GetGValue(highlight)),
               mix(GetBValue(window), GetBValue(highlight)));
}
} // namespace

void CGridList::Create(HWND parent, HFONT font)
{
    const CThemedControlsScope themed;
    RECT area{};
    GetClientRect(parent, &area);
    const DWORD style = WS_CHILD | WS_VISIBLE | WS_TABSTOP | LVS_REPORT | LVS_OWNERDATA | LVS_SHOWSELALWAYS;
    wchar_t title[256] = L"";
    GetWindowTextW(parent, title, static_cast<int>(std::size(title)));
    const HWND window =
        CreateWindowExW(WS_EX_CLIENTEDGE, WC_LISTVIEWW, title, style, 0, 0, area.right, area.bottom, parent,
                        reinterpret_cast<HMENU>(INT_PTR{identifier}), GetModuleInstance(), nullptr);
    if (window == nullptr || !Attach(window))
    {
        throw std::bad_alloc();
    }
    SendMessageW(window, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
    SendMessageW(window, LVM_SETUNICODEFORMAT, TRUE, 0);
    const DWORD extended =
        LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER | LVS_EX_HEADERDRAGDROP | LVS_EX_GRIDLINES;
    ListView_SetExtendedListViewStyle(window, extended);
    tip.Create(window, [this](GridCell cell) { return MakeTip(cell); });
}

void CGridList::Show(unsigned changes)
{
    constexpr unsigned ofSelection =
        GRIDCHANGE_ROWS | GRIDCHANGE_ORDER | GRIDCHANGE_SELECTION | GRIDCHANGE_CURRENT;
    const CFlagScope scope(updating);
    Update(changes, (changes & ofSelection) != 0);
    const int current = model->GetSelection().GetCurrentCell().row;
    if ((changes & ofSelection) != 0 && current != 0)
    {
        // Not every list knows how far it can scroll before it draws again.
        ListView_EnsureVisible(GetHandle(), current - 1, FALSE);
    }
    tip.Forget();
}

void CGridList::Update(unsigned changes, bool ofSelection)
{
    const CRedrawLock lock(GetHandle());
    if ((changes & GRIDCHANGE_COLUMNS) != 0)
    {
        ShowColumns();
    }
    if ((changes & GRIDCHANGE_ROWS) != 0)
    {
        ShowRowCount();
    }
    if ((changes & GRIDCHANGE_HEADERS) != 0)
    {
        ShowHeaderTexts();
    }
    if ((changes & (GRIDCHANGE_ORDER | GRIDCHANGE_COLUMNS | GRIDCHANGE_HEADERS)) != 0)
    {
        ShowSortMarks();
    }
    if (ofSelection)
    {
        ShowSelection();
    }
}

void CGridList::ShowRowCount()
{
    SetItemState(-1, 0, LVIS_SELECTED | LVIS_FOCUSED);
    ListView_SetItemCountEx(GetHandle(), model->GetRowCount(), 0);
    if (columnsAreNew && model->GetRowCount() > 0)
    {
        FitNewColumns();
        columnsAreNew = false;
    }
}

void CGridList::ShowSelection()
{
    const CGridSelection& selection = model->GetSelection();
    // All rows at once take the list no longer than one does.
    const bool most = selection.GetSelectedCount() > model->GetRowCount() / 2;
    SetItemState(-1, most ? LVIS_SELECTED : 0, LVIS_SELECTED | LVIS_FOCUSED);
    for (int row = 1; row <= model->GetRowCount(); ++row)
    {
        if (selection.IsSelected(row) != most)
        {
            SetItemState(row - 1, most ? 0 : LVIS_SELECTED, LVIS_SELECTED);
        }
    }
    if (const int current = selection.GetCurrentCell().row; current != 0)
    {
        SetItemState(current - 1, LVIS_FOCUSED, LVIS_FOCUSED);
        ListView_SetSelectionMark(GetHandle(), current - 1);
    }
}

int CGridList::GetColumn(int subItem) const
{
    const auto index = static_cast<std::size_t>(subItem);
    return subItem >= 0 && index < columns.size() ? columns[index] : 0;
}

std::wstring CGridList::GetShownText(int item, int subItem) const
{
    const int column = GetColumn(subItem);
    if (column == 0 || item < 0 || item >= model->GetRowCount())
    {
        return {};
    }
    const char* const text = model->GetText(item + 1, column);
    if (*text != '\0' && model->GetStyle(item + 1, column).valueType == GridValueType::Mark)
    {
        return mark;
    }
    return ToWide(MakeOneLine(text));
}

void CGridList::FillDisplayInfo(NMLVDISPINFOW& info) const
{
    if ((info.item.mask & LVIF_TEXT) == 0 || info.item.pszText == nullptr || info.item.cchTextMax <= 0)
    {
        return;
    }
    const std::wstring text = GetShownText(info.item.iItem, info.item.iSubItem);
    const auto room = static_cast<std::size_t>(info.item.cchTextMax) - 1;
    const std::size_t length = text.copy(info.item.pszText, room);
    info.item.pszText[length] = L'\0';
}

LRESULT CGridList::Draw(NMLVCUSTOMDRAW& draw) const
{
    switch (draw.nmcd.dwDrawStage)
    {
    case CDDS_PREPAINT:
        return CDRF_NOTIFYITEMDRAW;
    case CDDS_ITEMPREPAINT:
        return CDRF_NOTIFYSUBITEMDRAW;
    case CDDS_ITEMPREPAINT | CDDS_SUBITEM:
    {
        const auto row = static_cast<int>(draw.nmcd.dwItemSpec) + 1;
        const int column = GetColumn(draw.iSubItem);
        const bool faint = column != 0 && row <= model->GetRowCount() &&
                           model->GetStyle(row, column).emphasis == GridEmphasis::Faint;
        draw.clrText = GetSysColor(faint ? COLOR_GRAYTEXT : COLOR_WINDOWTEXT);
        const bool chosen = column != 0 && column == chosenColumn;
        draw.clrTextBk = chosen ? GetChosenColumnColour() : GetSysColor(COLOR_WINDOW);
        return CDRF_DODEFAULT;
    }
    default:
        return CDRF_DODEFAULT;
    }
}

LRESULT CGridList::FindItem(const NMLVFINDITEMW& search) const
{
    constexpr LRESULT notFound = -1;
    const int column = GetSearchColumn();
    if ((search.lvfi.flags & (LVFI_STRING | LVFI_PARTIAL)) == 0 || search.lvfi.psz == nullptr || column == 0)
    {
        return notFound;
    }
    const bool wrap = (search.lvfi.flags & LVFI_WRAP) != 0;
    const int row = FindRowByPrefix(*model, column, ToMultibyte(search.lvfi.psz), search.iStart + 1, wrap);
    return row != 0 ? row - 1 : notFound;
}

std::vector<int> CGridList::ReadSelectedRows() const
{
    std::vector<int> rows;
    for (int item = -1; (item = ListView_GetNextItem(GetHandle(), item, LVNI_SELECTED)) >= 0;)
    {
        rows.push_back(item + 1);
    }
    return rows;
}

int CGridList::CountSelectedRows() const
{
    return static_cast<int>(ListView_GetSelectedCount(GetHandle()));
}

void CGridList::SelectAll()
{
    SetItemState(-1, LVIS_SELECTED, LVIS_SELECTED);
}

void CGridList::Copy(const std::vector<int>& rows) const
{
    const CWaitCursor wait;
    if (!PutOnClipboard(GetHandle(), ToWide(CopyAsText(*model, GetColumnsInScreenOrder(), rows))))
    {
        MessageBeep(MB_ICONWARNING);
    }
}

void CGridList::SetItemState(int item, UINT state, UINT mask)
{
    LVITEMW change{};
    change.state = state;
    change.stateMask = mask;
    SendMessageW(GetHandle(), LVM_SETITEMSTATE, static_cast<WPARAM>(item), reinterpret_cast<LPARAM>(&change));
}

LRESULT CGridList::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message)
    {
    case WM_NOTIFY:
    {
        auto& notification = *reinterpret_cast<NMHDR*>(lParam);
        if (notification.code == HDN_DIVIDERDBLCLICKW || notification.code == HDN_DIVIDERDBLCLICKA)
        {
            FitColumn(reinterpret_cast<NMHEADERW*>(lParam)->iItem);
            return 0;
        }
        if (notification.code == TTN_GETDISPINFOW && notification.hwndFrom == tip.GetHandle())
        {
            reinterpret_cast<NMTTDISPINFOW*>(lParam)->lpszText = tip.GetText();
            return 0;
        }
        break;
    }
    case WM_CHAR:
        if (wParam < L' ' && GetKeyState(VK_CONTROL) < 0)
        {
            return 0; // Ctrl+A and Ctrl+C are no text to search for
        }
        if (IsSearchedFor(static_cast<wchar_t>(wParam)))
        {
            SearchFor(static_cast<wchar_t>(wParam));
            return 0;
        }
        break;
    case WM_GETDLGCODE:
        if (wParam == VK_RETURN && GetKeyState(VK_CONTROL) < 0)
        {
            return CWnd::HandleMessage(message, wParam, lParam) | DLGC_WANTMESSAGE;
        }
        break;
    case WM_SYSCOLORCHANGE:
        sortMarks.Forget();
        ShowSortMarks();
        break;
    case WM_KEYDOWN:
        if (HandleColumnKey(wParam))
        {
            return 0;
        }
        break;
    case WM_LBUTTONDOWN:
    case WM_RBUTTONDOWN:
        pressedColumn = GetColumn(HitTest({GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)}).iSubItem);
        break;
    case WM_MOUSEMOVE:
        PointTipAt({GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)});
        break;
    default:
        break;
    }
    const bool isMouse = message >= WM_MOUSEFIRST && message <= WM_MOUSELAST;
    if (isMouse)
    {
        tip.Relay(GetHandle(), message, wParam, lParam);
    }
    const bool isKey = message >= WM_KEYFIRST && message <= WM_KEYLAST;
    return (isMouse && message != WM_MOUSEMOVE) || isKey ? HandleInput(message, wParam, lParam)
                                                         : CWnd::HandleMessage(message, wParam, lParam);
}

// The list deselects one row and selects another: the grid's listener is told of both at once.
LRESULT CGridList::HandleInput(UINT message, WPARAM wParam, LPARAM lParam)
{
    const CFlagScope scope(handlingInput);
    CGridUpdateScope oneChange(*model);
    const LRESULT answer = CWnd::HandleMessage(message, wParam, lParam);
    oneChange.Finish();
    return answer;
}

int CGridList::GetSearchColumn() const
{
    return searchColumn != 0 ? searchColumn : FindFirstTextColumn(*model, GetColumnsInScreenOrder());
}

// A first blank selects the current row, as in every list; a later one belongs to what is searched for.
bool CGridList::IsSearchedFor(wchar_t character) const
{
    return character > L' ' ||
           (character == L' ' && typedSearch.IsGoingOn(static_cast<std::uint32_t>(GetMessageTime())));
}

void CGridList::SearchFor(wchar_t character)
{
    typedSearch.Add(character, static_cast<std::uint32_t>(GetMessageTime()));
    const int column = GetSearchColumn();
    const int first = model->GetSelection().GetCurrentCell().row + (typedSearch.WantsNext() ? 1 : 0);
    const int row =
        column != 0 ? FindRowByPrefix(*model, column, ToMultibyte(typedSearch.GetPrefix()), first, true) : 0;
    if (row != 0)
    {
        const CFlagScope scope(handlingInput);
        CGridUpdateScope oneChange(*model);
        SelectOnly(row);
        oneChange.Finish();
    }
}

void CGridList::SelectOnly(int row)
{
    constexpr UINT both = LVIS_SELECTED | LVIS_FOCUSED;
    SetItemState(-1, 0, LVIS_SELECTED);
    SetItemState(row - 1, both, both);
    ListView_SetSelectionMark(GetHandle(), row - 1);
    ListView_EnsureVisible(GetHandle(), row - 1, FALSE);
}

LVHITTESTINFO CGridList::HitTest(POINT point) const
{
    LVHITTESTINFO hit{};
    hit.pt = point;
    if (SendMessageW(GetHandle(), LVM_SUBITEMHITTEST, 0, reinterpret_cast<LPARAM>(&hit)) < 0)
    {
        hit.iItem = -1;
        hit.iSubItem = -1;
    }
    return hit;
}

void CGridList::PointTipAt(POINT point)
{
    const LVHITTESTINFO hit = HitTest(point);
    const GridCell cell = {hit.iItem + 1, GetColumn(hit.iSubItem)};
    const bool isCell = cell.row != 0 && cell.column != 0;
    if (tip.MovesTo(isCell ? cell : GridCell()))
    {
        tip.SetArea(isCell ? GetVisibleArea(cell) : RECT());
    }
}

std::wstring CGridList::MakeTip(GridCell cell) const
{
    if (const std::string described = describeCell(cell); !described.empty())
    {
        return ToWide(described);
    }
    const CMeasureScope measure(GetHandle());
    const char* const text = model->GetText(cell.row, cell.column);
    const RECT area = GetVisibleArea(cell);
    const int width = MeasureText(measure.Get(), text) + 2 * measure.GetAverageCharacter();
    const bool isMark = model->GetStyle(cell.row, cell.column).valueType == GridValueType::Mark;
    return !isMark && width > area.right - area.left ? ToWide(text) : std::wstring();
}

// What the window's edge cuts of a cell is cut off too.
RECT CGridList::GetVisibleArea(GridCell cell) const
{
    RECT area{};
    ListView_GetSubItemRect(GetHandle(), cell.row - 1, FindSubItem(cell.column), LVIR_LABEL, &area);
    RECT client{};
    GetClientRect(GetHandle(), &client);
    IntersectRect(&area, &area, &client);
    return area;
}
