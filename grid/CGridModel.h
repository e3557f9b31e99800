#pragma once

#include "grid/CGridSelection.h"
#include "grid/CGridSortKeys.h"
#include "grid/CTextPool.h"
#include "grid/GridStyle.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

// What changed in a grid: any of these, or-ed.
enum GRIDCHANGE : unsigned
{
    GRIDCHANGE_COLUMNS = 1,    // their number, or which are hidden
    GRIDCHANGE_HEADERS = 2,    // texts of headers
    GRIDCHANGE_ROWS = 4,       // their number
    GRIDCHANGE_CELLS = 8,      // texts or styles of cells
    GRIDCHANGE_ORDER = 16,     // the order of the rows, or which column they are sorted by
    GRIDCHANGE_SELECTION = 32, // which rows are selected, or what stands for the selection
    GRIDCHANGE_CURRENT = 64    // the current cell
};

// Is told after a grid has changed; while the grid's redraw is locked it waits and is told everything at
// once.
class IGridListener
{
public:
    // `changes` is a combination of GRIDCHANGE.
    virtual void OnGridChanged(unsigned changes) = 0;

protected:
    ~IGridListener() = default;
};

// The cells of a grid without a window. Columns are numbered from 1 and rows from 1; row 0 is the header. A
// cell takes eight bytes and its text, which it shares with the cell above when that has the same.
//
// A row, column or style that does not exist throws std::invalid_argument.
class CGridModel
{
public:
    // Who is told of changes; not owned, null for nobody.
    void SetListener(IGridListener* newListener) { listener = newListener; }

    // An empty grid with so many columns and no rows: no styles but the standard one, nothing hidden, no
    // header texts, no sort keys, nothing selected.
    void Reset(int newColumnCount);

    [[nodiscard]] int GetColumnCount() const { return static_cast<int>(columns.size()); }
    [[nodiscard]] int GetRowCount() const { return rowCount; }

    // Appends empty rows or removes the last ones. Nothing is selected afterwards, and the rows no longer
    // count as sorted.
    void SetRowCount(int newRowCount);

    // A style for cells to share; it lives until Reset.
    [[nodiscard]] GridStyleId AddStyle(GridStyle style);

    // Gives a cell a style and a text, or the style's own text. Row 0 is not for them.
    void SetCell(int row, int column, GridStyleId style, std::string_view text);
    void SetCell(int row, int column, GridStyleId style);

    [[nodiscard]] const GridStyle& GetStyle(int row, int column) const;

    // The text of a cell, or of a header for row 0; never null, valid until the next change.
    [[nodiscard]] const char* GetText(int row, int column) const;

    void SetHeaderText(int column, std::string text);

    // A number by which the owner of the grid knows the column again, and what most of its cells hold.
    void SetHeaderStyle(int column, int userAttribute, GridValueType valueType);
    [[nodiscard]] int GetUserAttribute(int column) const { return GetColumn(column).userAttribute; }
    [[nodiscard]] GridValueType GetValueType(int column) const { return GetColumn(column).valueType; }

    // The last column with that number in its header style, 0 when there is none.
    [[nodiscard]] int FindColumn(int userAttribute) const;

    void HideColumn(int column, bool hide);
    [[nodiscard]] bool IsColumnHidden(int column) const { return GetColumn(column).hidden; }

    // The keys to sort by. Changing them does not move rows: SortRows does.
    [[nodiscard]] CGridSortKeys& GetSortKeys() { return sortKeys; }
    [[nodiscard]] const CGridSortKeys& GetSortKeys() const { return sortKeys; }

    // Moves all rows at once: row `order[i]` becomes row i + 1. Selection and current cell go with their
    // rows. Throws std::invalid_argument unless `order` names every row once.
    void PermuteRows(std::span<const int> order);

    // The keys by which the rows stand sorted, the most important one first; none when they do not. A column
    // that is hidden is left out: the others' ranks are what the user sees.
    void MarkSorted();
    [[nodiscard]] std::vector<GridSortKey> GetSortedBy() const;

    void SelectRows(int first, int last, bool select);
    void SetCurrentCell(GridCell cell);
    [[nodiscard]] const CGridSelection& GetSelection() const { return selection; }

private:
    friend class CGridUpdateScope;

    struct Cell
    {
        CTextPool::Offset text = CTextPool::emptyText;
        GridStyleId style = 0;
    };

    struct Column
    {
        std::string headerText;
        int userAttribute = 0;
        GridValueType valueType = GridValueType::Text;
        bool hidden = false;
    };

    [[nodiscard]] const Column& GetColumn(int column) const;
    [[nodiscard]] std::size_t GetCellIndex(int row, int column) const;
    [[nodiscard]] CTextPool::Offset StoreText(std::size_t cell, std::string_view text);
    void CompactTexts();
    void LockRedraw() { ++redrawLocks; }
    void UnlockRedraw();
    void Notify(unsigned changes);

    IGridListener* listener = nullptr;
    std::vector<Column> columns;
    int rowCount = 0;
    std::vector<Cell> cells; // row by row
    CTextPool texts;
    std::vector<GridStyle> styles = {GridStyle()};
    CGridSortKeys sortKeys;
    bool sorted = false;
    CGridSelection selection;
    int redrawLocks = 0;
    unsigned pendingChanges = 0;
};

// Locks the redraw of a grid as long as it lives: the listener waits for its end. Scopes nest.
class CGridUpdateScope
{
public:
    explicit CGridUpdateScope(CGridModel& gridModel) : model(&gridModel) { model->LockRedraw(); }

    // For an update that failed; what the listener throws is lost then.
    ~CGridUpdateScope();

    CGridUpdateScope(const CGridUpdateScope&) = delete;
    CGridUpdateScope& operator=(const CGridUpdateScope&) = delete;

    // Ends the scope: the listener is told, and what it throws passes.
    void Finish();

private:
    CGridModel* model; // null after Finish
};
