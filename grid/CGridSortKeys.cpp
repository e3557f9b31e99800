#include "grid/CGridSortKeys.h"

void CGridSortKeys::ClickHeader(int column)
{
    if (keys.front().column == column)
    {
        keys.front().ascending = !keys.front().ascending;
        return;
    }
    std::erase_if(keys, [column](const GridSortKey& key) { return key.column == column; });
    keys.insert(keys.begin(), GridSortKey{column, true});
}
