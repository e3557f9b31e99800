#pragma once

#include "framework/CHandle.h"
#include "grid/CGridSortKeys.h"

#include <commctrl.h>
#include <optional>
#include <vector>

// The marks on the headers of the columns that rows are sorted by: the system's arrow on a single one; of
// several, each has an arrow with its rank.
class CSortMarks
{
public:
    // Shows the marks of the keys, which stand in the order of their ranks. `columns` are those that the
    // items of the header show.
    void Show(HWND header, std::vector<GridSortKey> keys, const std::vector<int>& columns);

    // The header's items are new, or marks have another look now: the next Show looks at all of them.
    void Forget() { shown.reset(); }

    // The room that a mark takes besides the text of its header.
    [[nodiscard]] static int GetWidth(HWND header);

private:
    struct DestroyImageList
    {
        void operator()(HIMAGELIST list) const noexcept { ImageList_Destroy(list); }
    };

    std::optional<std::vector<GridSortKey>> shown;
    CHandle<HIMAGELIST, DestroyImageList> images; // by rank
};
