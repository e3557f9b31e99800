#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

// A cell of a grid by its row and column, both numbered from 1; {0, 0} is no cell.
struct GridCell
{
    int row = 0;
    int column = 0;

    friend bool operator==(const GridCell&, const GridCell&) = default;
};

// Which rows of a grid are selected, and its current cell, which stands for the selection where no row is
// selected. Rows are numbered from 1; numbers beyond the rows name nothing.
class CGridSelection
{
public:
    // Nothing selected, no current cell.
    void Reset(int rowCount);

    // Selects or deselects the rows `first` to `last`. True when that changed a row.
    bool Select(int first, int last, bool select);

    // True when the current cell was another one.
    bool SetCurrentCell(GridCell cell);

    [[nodiscard]] bool IsSelected(int row) const;
    [[nodiscard]] int GetSelectedCount() const { return selectedCount; }
    [[nodiscard]] GridCell GetCurrentCell() const { return current; }

    // The selected rows in ascending order; without any the row of the current cell, if there is one.
    [[nodiscard]] std::vector<int> GetRows() const;

    // The row that GetRows consists of; 0 when it has none or several.
    [[nodiscard]] int GetOnlyRow() const;

    // Follows the rows: row `order[i]` becomes row i + 1. `order` names every row once.
    void Permute(std::span<const int> order);

private:
    [[nodiscard]] int GetRowCount() const { return static_cast<int>(selected.size()); }

    std::vector<std::uint8_t> selected; // 1 for a selected row; row 1 first
    int selectedCount = 0;
    GridCell current;
};
