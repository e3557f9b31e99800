#include "grid/CGridModel.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <stdexcept>
#include <utility>

namespace
{
bool NamesEachRowOnce(std::span<const int> order, int rowCount)
{
    std::vector<bool> named(static_cast<std::size_t>(rowCount), false);
    for (const int row : order)
    {
        if (row < 1 || row > rowCount || named[static_cast<std::size_t>(row) - 1])
        {
            return false;
        }
        named[static_cast<std::size_t>(row) - 1] = true;
    }
    return order.size() == named.size();
}
} // namespace

void CGridModel::Reset(int newColumnCount)
{
    SetRowCount(0);
    columns.assign(static_cast<std::size_t>(newColumnCount), Column());
    styles.assign(1, GridStyle());
    sortKeys = {};
    Notify(GRIDCHANGE_COLUMNS | GRIDCHANGE_HEADERS | GRIDCHANGE_ORDER);
}

void CGridModel::SetRowCount(int newRowCount)
{
    if (newRowCount < 0)
    {
        throw std::invalid_argument("a grid has no less than 0 rows");
    }
    const bool hadSelection = !selection.GetRows().empty();
    const bool hadCurrent = selection.GetCurrentCell() != GridCell();
    CGridSelection newSelection;
    newSelection.Reset(newRowCount);
    cells.resize(static_cast<std::size_t>(newRowCount) * columns.size());
    rowCount = newRowCount;
    selection = std::move(newSelection);
    sorted = false;
    if (newRowCount == 0)
    {
        texts = {};
    }
    Notify(GRIDCHANGE_ROWS | GRIDCHANGE_ORDER | (hadSelection ? GRIDCHANGE_SELECTION : 0U) |
           (hadCurrent ? GRIDCHANGE_CURRENT : 0U));
}

GridStyleId CGridModel::AddStyle(GridStyle style)
{
    if (styles.size() > std::numeric_limits<GridStyleId>::max())
    {
        throw std::length_error("too many styles for one grid");
    }
    styles.push_back(std::move(style));
    return static_cast<GridStyleId>(styles.size() - 1);
}

void CGridModel::SetCell(int row, int column, GridStyleId style, std::string_view text)
{
    const std::size_t index = GetCellIndex(row, column);
    if (style >= styles.size())
    {
        throw std::invalid_argument("the grid has no such style");
    }
    const CTextPool::Offset stored = StoreText(index, text);
    texts.Abandon(cells[index].text);
    cells[index] = {stored, style};
    CompactTexts();
    Notify(GRIDCHANGE_CELLS);
}

void CGridModel::SetCell(int row, int column, GridStyleId style)
{
    const std::string_view value = style < styles.size() ? styles[style].value : std::string_view();
    SetCell(row, column, style, value);
}

const GridStyle& CGridModel::GetStyle(int row, int column) const
{
    return styles[cells[GetCellIndex(row, column)].style];
}

const char* CGridModel::GetText(int row, int column) const
{
    return row == 0 ? GetColumn(column).headerText.c_str() : texts.Get(cells[GetCellIndex(row, column)].text);
}

void CGridModel::SetHeaderText(int column, std::string text)
{
    static_cast<void>(GetColumn(column));
    columns[static_cast<std::size_t>(column) - 1].headerText = std::move(text);
    Notify(GRIDCHANGE_HEADERS);
}

void CGridModel::SetHeaderStyle(int column, int userAttribute, GridValueType valueType)
{
    static_cast<void>(GetColumn(column));
    columns[static_cast<std::size_t>(column) - 1].userAttribute = userAttribute;
    columns[static_cast<std::size_t>(column) - 1].valueType = valueType;
    Notify(GRIDCHANGE_COLUMNS);
}

int CGridModel::FindColumn(int userAttribute) const
{
    int column = GetColumnCount();
    while (column > 0 && GetColumn(column).userAttribute != userAttribute)
    {
        --column;
    }
    return column;
}

void CGridModel::HideColumn(int column, bool hide)
{
    static_cast<void>(GetColumn(column));
    columns[static_cast<std::size_t>(column) - 1].hidden = hide;
    Notify(GRIDCHANGE_COLUMNS);
}

void CGridModel::PermuteRows(std::span<const int> order)
{
    if (!NamesEachRowOnce(order, rowCount))
    {
        throw std::invalid_argument("not an order of the rows");
    }
    std::vector<Cell> moved(cells.size());
    auto out = moved.begin();
    for (const int row : order)
    {
        const auto from = cells.begin() + static_cast<std::ptrdiff_t>(GetCellIndex(row, 1));
        out = std::copy_n(from, columns.size(), out);
    }
    selection.Permute(order);
    cells = std::move(moved);
    sorted = false;
    Notify(GRIDCHANGE_CELLS | GRIDCHANGE_ORDER);
}

void CGridModel::MarkSorted()
{
    sorted = true;
    Notify(GRIDCHANGE_ORDER);
}

std::vector<GridSortKey> CGridModel::GetSortedBy() const
{
    std::vector<GridSortKey> keys;
    for (const GridSortKey& key : sortKeys.GetAll())
    {
        if (sorted && key.column >= 1 && key.column <= GetColumnCount() && !IsColumnHidden(key.column))
        {
            keys.push_back(key);
        }
    }
    return keys;
}

void CGridModel::SelectRows(int first, int last, bool select)
{
    if (selection.Select(first, last, select))
    {
        Notify(GRIDCHANGE_SELECTION);
    }
}

void CGridModel::SetCurrentCell(GridCell cell)
{
    const int rowBefore = selection.GetCurrentCell().row;
    if (selection.SetCurrentCell(cell))
    {
        const bool standsForSelection =
            selection.GetSelectedCount() == 0 && selection.GetCurrentCell().row != rowBefore;
        Notify(GRIDCHANGE_CURRENT | (standsForSelection ? GRIDCHANGE_SELECTION : 0U));
    }
}

void CGridModel::UnlockRedraw()
{
    --redrawLocks;
    Notify(0);
}

const CGridModel::Column& CGridModel::GetColumn(int column) const
{
    if (column < 1 || column > GetColumnCount())
    {
        throw std::invalid_argument("the grid has no such column");
    }
    return columns[static_cast<std::size_t>(column) - 1];
}

std::size_t CGridModel::GetCellIndex(int row, int column) const
{
    if (row < 1 || row > rowCount || column < 1 || column > GetColumnCount())
    {
        throw std::invalid_argument("the grid has no such cell");
    }
    return static_cast<std::size_t>(row - 1) * columns.size() + static_cast<std::size_t>(column - 1);
}

CTextPool::Offset CGridModel::StoreText(std::size_t cell, std::string_view text)
{
    if (cell >= columns.size())
    {
        const CTextPool::Offset above = cells[cell - columns.size()].text;
        if (texts.Get(above) == text)
        {
            return above;
        }
    }
    return texts.Add(text);
}

// Waits until so much is abandoned that the work is in proportion to the changes that led to it.
void CGridModel::CompactTexts()
{
    if (texts.GetAbandonedBytes() <= texts.GetBytes() / 2 + cells.size() * sizeof(Cell))
    {
        return;
    }
    CTextPool kept;
    std::vector<CTextPool::Offset> lastOld(columns.size(), CTextPool::emptyText);
    std::vector<CTextPool::Offset> lastNew(columns.size(), CTextPool::emptyText);
    std::vector<CTextPool::Offset> offsets;
    offsets.reserve(cells.size());
    for (std::size_t i = 0; i < cells.size(); ++i)
    {
        const std::size_t column = i % columns.size();
        if (cells[i].text != lastOld[column])
        {
            lastOld[column] = cells[i].text;
            lastNew[column] = kept.Add(texts.Get(cells[i].text));
        }
        offsets.push_back(lastNew[column]);
    }
    for (std::size_t i = 0; i < cells.size(); ++i)
    {
        cells[i].text = offsets[i];
    }
    texts = std::move(kept);
}

void CGridModel::Notify(unsigned changes)
{
    pendingChanges |= changes;
    if (pendingChanges != 0 && redrawLocks == 0)
    {
        const unsigned told = pendingChanges;
        pendingChanges = 0;
        if (listener != nullptr)
        {
            listener->OnGridChanged(told);
        }
    }
}

CGridUpdateScope::~CGridUpdateScope()
{
    try
    {
        Finish();
    }
    catch (...) // the exception that ended the update matters more
    {
        return;
    }
}

void CGridUpdateScope::Finish()
{
    if (CGridModel* const finished = std::exchange(model, nullptr))
    {
        finished->UnlockRedraw();
    }
}
