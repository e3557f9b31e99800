#include "grid/CGridSelection.h"

#include <algorithm>

namespace
{
std::size_t IndexOf(int row)
{
    return static_cast<std::size_t>(row) - 1;
}
} // namespace

void CGridSelection::Reset(int rowCount)
{
    selected.assign(static_cast<std::size_t>(rowCount), 0);
    selectedCount = 0;
    current = {};
}

bool CGridSelection::Select(int first, int last, bool select)
{
    const int before = selectedCount;
    const std::uint8_t flag = select ? 1 : 0;
    for (int row = std::max(first, 1); row <= std::min(last, GetRowCount()); ++row)
    {
        std::uint8_t& own = selected[IndexOf(row)];
        selectedCount += flag - own;
        own = flag;
    }
    return selectedCount != before;
}

bool CGridSelection::SetCurrentCell(GridCell cell)
{
    if (cell.row < 1 || cell.row > GetRowCount())
    {
        cell = {};
    }
    const bool changes = cell != current;
    current = cell;
    return changes;
}

bool CGridSelection::IsSelected(int row) const
{
    return row >= 1 && row <= GetRowCount() && selected[IndexOf(row)] != 0;
}

std::vector<int> CGridSelection::GetRows() const
{
    std::vector<int> rows;
    if (selectedCount == 0)
    {
        if (current.row != 0)
        {
            rows.push_back(current.row);
        }
        return rows;
    }
    rows.reserve(static_cast<std::size_t>(selectedCount));
    for (int row = 1; row <= GetRowCount(); ++row)
    {
        if (IsSelected(row))
        {
            rows.push_back(row);
        }
    }
    return rows;
}

int CGridSelection::GetOnlyRow() const
{
    if (selectedCount == 0)
    {
        return current.row;
    }
    if (selectedCount > 1)
    {
        return 0;
    }
    return static_cast<int>(std::find(selected.begin(), selected.end(), 1) - selected.begin()) + 1;
}

void CGridSelection::Permute(std::span<const int> order)
{
    std::vector<std::uint8_t> permuted(selected.size());
    int currentRow = 0;
    for (std::size_t i = 0; i < order.size(); ++i)
    {
        permuted[i] = selected[IndexOf(order[i])];
        if (order[i] == current.row)
        {
            currentRow = static_cast<int>(i) + 1;
        }
    }
    selected = std::move(permuted);
    current.row = currentRow;
}
