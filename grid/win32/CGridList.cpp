#include "grid/win32/CGridList.h"

#include "framework/Clipboard.h"
#include "framework/DrawingScopes.h"
#include "framework/ModuleResources.h"
#include "framework/TextConversion.h"
#include "framework/WindowScopes.h"
#include "grid/GridTexts.h"

#include <algorithm>
#include <new>
#include <utility>
#include <windowsx.h>

namespace
{
constexpr int listIdentifier = 1;
constexpr const wchar_t* mark = L"\u2022"; // which every font has

// A list view shows so many characters of a text.
constexpr std::size_t shownLength = 259;

// New columns are fitted to so many rows, and are no wider than so many average characters.
constexpr int fittedRows = 500;
constexpr int widestNewColumn = 36;

int GetAlignment(GridValueType valueType)
{
    return valueType == GridValueType::Number ? LVCFMT_RIGHT : LVCFMT_LEFT;
}

TEXTMETRICW GetMetrics(HDC context)
{
    TEXTMETRICW metrics{};
    GetTextMetricsW(context, &metrics);
    return metrics;
}

// The client area's device context with the font of the window selected.
class CMeasureScope
{
public:
    explicit CMeasureScope(HWND window)
        : client(window), font(client.Get(), reinterpret_cast<HFONT>(SendMessageW(window, WM_GETFONT, 0, 0)))
    {
    }

    [[nodiscard]] HDC Get() const { return client.Get(); }

private:
    CClientDC client;
    CSelectScope font;
};
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
                        reinterpret_cast<HMENU>(INT_PTR{listIdentifier}), GetModuleInstance(), nullptr);
    if (window == nullptr || !Attach(window))
    {
        throw std::bad_alloc();
    }
    SendMessageW(window, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
    SendMessageW(window, LVM_SETUNICODEFORMAT, TRUE, 0);
    const DWORD extended =
        LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER | LVS_EX_HEADERDRAGDROP | LVS_EX_GRIDLINES;
    ListView_SetExtendedListViewStyle(window, extended);
    tip.Create(window);
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
        ShowSortArrow();
    }
    if (ofSelection)
    {
        ShowSelection();
    }
}

void CGridList::ShowColumns()
{
    while (ListView_DeleteColumn(GetHandle(), 0) != FALSE)
    {
    }
    columns = GetVisibleColumns(*model);
    headers.clear();
    pressedColumn = 0;
    chosenColumn = 0;
    columnsAreNew = true;
    for (std::size_t i = 0; i < columns.size(); ++i)
    {
        headers.push_back(MakeOneLine(model->GetText(0, columns[i])));
        std::wstring text = ToWide(headers.back());
        LVCOLUMNW column{};
        column.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_FMT | LVCF_SUBITEM;
        column.fmt = GetAlignment(model->GetValueType(columns[i]));
        column.pszText = text.data();
        column.cx = MeasureHeader(columns[i]);
        column.iSubItem = static_cast<int>(i);
        SendMessageW(GetHandle(), LVM_INSERTCOLUMNW, i, reinterpret_cast<LPARAM>(&column));
    }
}

void CGridList::ShowHeaderTexts()
{
    for (std::size_t i = 0; i < columns.size(); ++i)
    {
        std::string shown = MakeOneLine(model->GetText(0, columns[i]));
        if (shown == headers[i])
        {
            continue;
        }
        std::wstring text = ToWide(shown);
        headers[i] = std::move(shown);
        const auto subItem = static_cast<int>(i);
        LVCOLUMNW column{};
        column.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_FMT;
        column.fmt = GetAlignment(model->GetValueType(columns[i])); // not every list keeps it
        column.pszText = text.data();
        column.cx = std::max(ListView_GetColumnWidth(GetHandle(), subItem), MeasureHeader(columns[i]));
        SendMessageW(GetHandle(), LVM_SETCOLUMNW, i, reinterpret_cast<LPARAM>(&column));
    }
}

void CGridList::ShowSortArrow()
{
    const GridSortKey key = model->GetSortedBy();
    const HWND header = ListView_GetHeader(GetHandle());
    for (std::size_t i = 0; i < columns.size(); ++i)
    {
        HDITEMW item{};
        item.mask = HDI_FORMAT;
        SendMessageW(header, HDM_GETITEMW, i, reinterpret_cast<LPARAM>(&item));
        const int before = std::exchange(item.fmt, item.fmt & ~(HDF_SORTUP | HDF_SORTDOWN));
        if (key.column == columns[i])
        {
            item.fmt |= key.ascending ? HDF_SORTUP : HDF_SORTDOWN;
        }
        if (item.fmt != before)
        {
            SendMessageW(header, HDM_SETITEMW, i, reinterpret_cast<LPARAM>(&item));
        }
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
        draw.clrTextBk = GetSysColor(column != 0 && column == chosenColumn ? COLOR_INFOBK : COLOR_WINDOW);
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

std::vector<int> CGridList::GetColumnsInScreenOrder() const
{
    std::vector<int> order(columns.size());
    if (ListView_GetColumnOrderArray(GetHandle(), static_cast<int>(order.size()), order.data()) == FALSE)
    {
        return columns;
    }
    std::transform(order.begin(), order.end(), order.begin(),
                   [this](int subItem) { return GetColumn(subItem); });
    return order;
}

std::vector<ColumnPlace> CGridList::ReadColumnPlaces() const
{
    const int character = GetMetrics(CMeasureScope(GetHandle()).Get()).tmAveCharWidth;
    std::vector<ColumnPlace> places;
    for (const int column : GetColumnsInScreenOrder())
    {
        const auto subItem = std::find(columns.begin(), columns.end(), column) - columns.begin();
        const int width = ListView_GetColumnWidth(GetHandle(), static_cast<int>(subItem));
        places.push_back({model->GetUserAttribute(column), MulDiv(width, 100, character)});
    }
    return places;
}

void CGridList::ShowColumnPlaces(const std::vector<ColumnPlace>& places)
{
    std::vector<int> order;
    for (const ColumnPlace& place : places)
    {
        const auto found = std::find(columns.begin(), columns.end(), model->FindColumn(place.userAttribute));
        const auto subItem = static_cast<int>(found - columns.begin());
        if (found != columns.end() && std::find(order.begin(), order.end(), subItem) == order.end())
        {
            order.push_back(subItem);
        }
    }
    if (order.size() != columns.size() || places.size() != columns.size())
    {
        return;
    }
    const int character = GetMetrics(CMeasureScope(GetHandle()).Get()).tmAveCharWidth;
    for (std::size_t i = 0; i < order.size(); ++i)
    {
        ListView_SetColumnWidth(GetHandle(), order[i], MulDiv(places[i].width, character, 100));
    }
    ListView_SetColumnOrderArray(GetHandle(), static_cast<int>(order.size()), order.data());
    columnsAreNew = false;
}

void CGridList::FitColumn(int subItem)
{
    if (const int column = GetColumn(subItem); column != 0)
    {
        const CWaitCursor wait;
        const int width = std::max(MeasureHeader(column), MeasureCells(column, model->GetRowCount()));
        ListView_SetColumnWidth(GetHandle(), subItem, width);
    }
}

void CGridList::FitNewColumns()
{
    const int widest = GetMetrics(CMeasureScope(GetHandle()).Get()).tmAveCharWidth * widestNewColumn;
    for (std::size_t i = 0; i < columns.size(); ++i)
    {
        const int cells = std::min(MeasureCells(columns[i], fittedRows), widest);
        const int width = std::max(MeasureHeader(columns[i]), cells);
        ListView_SetColumnWidth(GetHandle(), static_cast<int>(i), width);
    }
}

// Room for the margins of a cell, which a list view does not tell.
int CGridList::GetPadding() const
{
    return 3 * GetMetrics(CMeasureScope(GetHandle()).Get()).tmAveCharWidth;
}

int CGridList::MeasureHeader(int column) const
{
    const CMeasureScope measure(GetHandle());
    const int sortArrow = 2 * GetMetrics(measure.Get()).tmAveCharWidth;
    return MeasureText(measure.Get(), MakeOneLine(model->GetText(0, column))) + GetPadding() + sortArrow;
}

int CGridList::MeasureCells(int column, int lastRow) const
{
    const CMeasureScope measure(GetHandle());
    return MeasureColumn(*model, column, lastRow, GetMetrics(measure.Get()).tmMaxCharWidth,
                         [&](std::string_view text) { return MeasureText(measure.Get(), text); }) +
           GetPadding();
}

int CGridList::MeasureText(HDC context, std::string_view text) const
{
    const std::wstring shown = ToWide(MakeOneLine(text.substr(0, shownLength)));
    SIZE extent{};
    GetTextExtentPoint32W(context, shown.c_str(), static_cast<int>(shown.size()), &extent);
    return extent.cx;
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

// Ctrl+Shift+Left and Right choose a column, Ctrl+Shift+Enter clicks on its header.
bool CGridList::HandleColumnKey(WPARAM key)
{
    const bool isColumnKey = key == VK_LEFT || key == VK_RIGHT || key == VK_RETURN;
    if (!isColumnKey || GetKeyState(VK_CONTROL) >= 0 || GetKeyState(VK_SHIFT) >= 0)
    {
        return false;
    }
    if (key == VK_RETURN)
    {
        ClickChosenHeader();
    }
    else
    {
        ChooseColumn(key == VK_LEFT ? -1 : 1);
    }
    return true;
}

void CGridList::ChooseColumn(int step)
{
    const std::vector<int> order = GetColumnsInScreenOrder();
    if (order.empty())
    {
        return;
    }
    const auto found = std::find(order.begin(), order.end(), chosenColumn);
    const auto last = static_cast<std::ptrdiff_t>(order.size()) - 1;
    const std::ptrdiff_t place =
        found == order.end() ? 0 : std::clamp<std::ptrdiff_t>(found - order.begin() + step, 0, last);
    chosenColumn = order[static_cast<std::size_t>(place)];
    const auto subItem = std::find(columns.begin(), columns.end(), chosenColumn) - columns.begin();
    RECT header{};
    SendMessageW(ListView_GetHeader(GetHandle()), HDM_GETITEMRECT, static_cast<WPARAM>(subItem),
                 reinterpret_cast<LPARAM>(&header));
    RECT client{};
    GetClientRect(GetHandle(), &client);
    MapWindowPoints(ListView_GetHeader(GetHandle()), GetHandle(), reinterpret_cast<POINT*>(&header), 2);
    const LONG beyond = header.left < 0 ? header.left : std::max(header.right - client.right, LONG{0});
    SendMessageW(GetHandle(), LVM_SCROLL, static_cast<WPARAM>(beyond), 0);
    InvalidateRect(GetHandle(), nullptr, TRUE);
}

void CGridList::ClickChosenHeader()
{
    const auto found = std::find(columns.begin(), columns.end(), chosenColumn);
    if (found != columns.end())
    {
        NMLISTVIEW click{};
        click.hdr = {GetHandle(), listIdentifier, static_cast<UINT>(LVN_COLUMNCLICK)};
        click.iItem = -1;
        click.iSubItem = static_cast<int>(found - columns.begin());
        SendMessageW(GetParent(GetHandle()), WM_NOTIFY, listIdentifier, reinterpret_cast<LPARAM>(&click));
    }
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
    if (!tip.MovesTo(cell))
    {
        return;
    }
    if (hit.iItem < 0 || cell.column == 0)
    {
        tip.Show({}, {});
        return;
    }
    RECT area{};
    ListView_GetSubItemRect(GetHandle(), hit.iItem, hit.iSubItem, LVIR_LABEL, &area);
    RECT client{};
    GetClientRect(GetHandle(), &client);
    IntersectRect(&area, &area, &client); // what the window's edge cuts is cut off too
    const CMeasureScope measure(GetHandle());
    const char* const text = model->GetText(cell.row, cell.column);
    const int textWidth = MeasureText(measure.Get(), text);
    const int margins = 2 * GetMetrics(measure.Get()).tmAveCharWidth;
    const bool isMark = model->GetStyle(cell.row, cell.column).valueType == GridValueType::Mark;
    const bool cutOff = !isMark && textWidth + margins > area.right - area.left;
    tip.Show(area, cutOff ? ToWide(text) : std::wstring());
}
