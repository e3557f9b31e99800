// The columns of the list: their headers, widths and order, and the keys that choose one.
#include "framework/TextConversion.h"
#include "framework/WindowScopes.h"
#include "grid/GridTexts.h"
#include "grid/win32/CGridList.h"
#include "grid/win32/CMeasureScope.h"

#include <algorithm>
#include <utility>

namespace
{
// A list view shows so many characters of a text.
constexpr std::size_t shownLength = 259;

// New columns are fitted to so many rows, and are no wider than so many average characters.
constexpr int fittedRows = 500;
constexpr int widestNewColumn = 36;

int GetAlignment(GridValueType valueType)
{
    return valueType == GridValueType::Number ? LVCFMT_RIGHT : LVCFMT_LEFT;
}
} // namespace

void CGridList::ShowColumns()
{
    while (ListView_DeleteColumn(GetHandle(), 0) != FALSE)
    {
    }
    columns = GetVisibleColumns(*model);
    headers.clear();
    sortMarks.Forget();
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
        sortMarks.Forget(); // not every list keeps the marks of its headers
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

void CGridList::ShowSortMarks()
{
    sortMarks.Show(ListView_GetHeader(GetHandle()), model->GetSortedBy(), columns);
}

int CGridList::FindSubItem(int column) const
{
    const auto found = std::find(columns.begin(), columns.end(), column);
    return found != columns.end() ? static_cast<int>(found - columns.begin()) : -1;
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
    const int character = CMeasureScope(GetHandle()).GetAverageCharacter();
    std::vector<ColumnPlace> places;
    for (const int column : GetColumnsInScreenOrder())
    {
        const int width = ListView_GetColumnWidth(GetHandle(), FindSubItem(column));
        places.push_back({model->GetUserAttribute(column), MulDiv(width, 100, character)});
    }
    return places;
}

void CGridList::ShowColumnPlaces(const std::vector<ColumnPlace>& places)
{
    std::vector<int> order;
    for (const ColumnPlace& place : places)
    {
        const int subItem = FindSubItem(model->FindColumn(place.userAttribute));
        if (subItem >= 0 && std::find(order.begin(), order.end(), subItem) == order.end())
        {
            order.push_back(subItem);
        }
    }
    if (order.size() != columns.size() || places.size() != columns.size())
    {
        return;
    }
    const int character = CMeasureScope(GetHandle()).GetAverageCharacter();
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
    const int widest = CMeasureScope(GetHandle()).GetAverageCharacter() * widestNewColumn;
    for (std::size_t i = 0; i < columns.size(); ++i)
    {
        const int cells = std::min(MeasureCells(columns[i], fittedRows), widest);
        const int width = std::max(MeasureHeader(columns[i]), cells);
        ListView_SetColumnWidth(GetHandle(), static_cast<int>(i), width);
    }
}

// Room for the margins of a cell or a header, which a list view does not tell.
int CGridList::GetPadding() const
{
    return 3 * CMeasureScope(GetHandle()).GetAverageCharacter();
}

int CGridList::MeasureHeader(int column) const
{
    const CMeasureScope measure(GetHandle());
    return MeasureText(measure.Get(), MakeOneLine(model->GetText(0, column))) + GetPadding() +
           CSortMarks::GetWidth(ListView_GetHeader(GetHandle()));
}

int CGridList::MeasureCells(int column, int lastRow) const
{
    const CMeasureScope measure(GetHandle());
    return MeasureColumn(*model, column, lastRow, measure.GetWidestCharacter(),
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
    RECT header{};
    SendMessageW(ListView_GetHeader(GetHandle()), HDM_GETITEMRECT,
                 static_cast<WPARAM>(FindSubItem(chosenColumn)), reinterpret_cast<LPARAM>(&header));
    RECT client{};
    GetClientRect(GetHandle(), &client);
    MapWindowPoints(ListView_GetHeader(GetHandle()), GetHandle(), reinterpret_cast<POINT*>(&header), 2);
    const LONG beyond = header.left < 0 ? header.left : std::max(header.right - client.right, LONG{0});
    SendMessageW(GetHandle(), LVM_SCROLL, static_cast<WPARAM>(beyond), 0);
    InvalidateRect(GetHandle(), nullptr, TRUE);
}

void CGridList::ClickChosenHeader()
{
    if (const int subItem = FindSubItem(chosenColumn); subItem >= 0)
    {
        NMLISTVIEW click{};
        click.hdr = {GetHandle(), identifier, static_cast<UINT>(LVN_COLUMNCLICK)};
        click.iItem = -1;
        click.iSubItem = subItem;
        SendMessageW(GetParent(GetHandle()), WM_NOTIFY, identifier, reinterpret_cast<LPARAM>(&click));
    }
}
