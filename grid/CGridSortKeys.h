#pragma once

#include <span>
#include <vector>

struct GridSortKey
{
    int column = 0; // 0: no column, by which all rows are equal
    bool ascending = true;

    friend bool operator==(const GridSortKey&, const GridSortKey&) = default;
};

// By which columns the rows of a grid are sorted, the most important one first. It starts with one key of no
// column.
class CGridSortKeys
{
public:
    // What a click on the header of `column` asks for: the other direction when it is the first key already;
    // otherwise it becomes the first key, ascending, and the keys so far follow it.
    void ClickHeader(int column);

    [[nodiscard]] std::span<const GridSortKey> GetAll() const { return keys; }
    [[nodiscard]] GridSortKey GetFirst() const { return keys.front(); }

private:
    std::vector<GridSortKey> keys = {GridSortKey()};
};
