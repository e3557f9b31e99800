#pragma once

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
