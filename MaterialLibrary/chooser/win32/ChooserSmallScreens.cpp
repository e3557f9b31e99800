// The dialog on a screen that is too narrow for its template.
#include "chooser/ControlRows.h"
#include "chooser/win32/CChooseMaterialDlg.h"
#include "framework/DialogItems.h"
#include "resources/DialogIds.h"

#include <algorithm>

namespace
{
// Where the filters stand in more rows than the template's, in dialog units.
constexpr int margin = 7;
constexpr int rowHeight = 19;
constexpr int filterGap = 9;
constexpr int shrinkableCombo = 24;
constexpr int leastNameWidth = 80;

using FilterBlock = std::vector<int>;
const FilterBlock filterBlocks[] = {
    {ML_LABEL_TYPE, ML_COMBO_TYPE},
    {ML_LABEL_TECHNOLOGY, ML_COMBO_TECHNOLOGY},
    {ML_LABEL_THICKNESS, ML_EDIT_THICKNESS_MINIMUM, ML_LABEL_THICKNESS_TO, ML_EDIT_THICKNESS_MAXIMUM,
     ML_LABEL_UNIT, ML_COMBO_UNITS},
    {ML_CHECK_SHOW_GRAPHICALLY},
};
} // namespace

// On a screen that the template is too wide for, what stands in one row takes two or more; the grid gives
// way.
void CChooseMaterialDlg::NarrowControls(int width)
{
    const int above = PlaceFilters(width);
    const int below = PlaceBottomControls(width);
    const RECT gridRect = GetItemRect(GetHandle(), ML_GRID);
    SetControlHeight(ML_GRID, gridRect.top + above, gridRect.bottom - gridRect.top - above - below);
    chartPane.TakeFromGrid(above + below);
    LayOutControls();
}

// The answer is how many pixels they need below those of the template.
int CChooseMaterialDlg::PlaceFilters(int width)
{
    const HWND dialog = GetHandle();
    RECT measures{margin, rowHeight, filterGap, 0};
    MapDialogRect(dialog, &measures);
    RECT shrinkable{0, 0, shrinkableCombo, 0};
    MapDialogRect(dialog, &shrinkable);
    std::vector<ControlBlock> blocks;
    for (const FilterBlock& block : filterBlocks)
    {
        const int blockWidth =
            GetItemRect(dialog, block.back()).right - GetItemRect(dialog, block.front()).left;
        const bool isShown = (GetWindowLongW(GetDlgItem(dialog, block.front()), GWL_STYLE) & WS_VISIBLE) != 0;
        const bool canShrink = block.size() > 1;
        blocks.push_back(isShown ? ControlBlock{blockWidth, blockWidth - (canShrink ? shrinkable.right : 0)}
                                 : ControlBlock{});
    }
    const std::vector<PlacedBlock> places =
        PlaceInRows(blocks, measures.left, width - measures.left, measures.right);
    for (std::size_t i = 0; i < places.size(); ++i)
    {
        const FilterBlock& block = filterBlocks[i];
        const int right = places[i].width - blocks[i].width;
        const int down =
            places[i].row * measures.top - (block.front() == ML_CHECK_SHOW_GRAPHICALLY ? measures.top : 0);
        const int along = places[i].left - GetItemRect(dialog, block.front()).left;
        for (const int control : block)
        {
            ShiftItem(dialog, control, along, down);
        }
        WidenItem(dialog, block.back(), right);
    }
    return std::max(places.back().row - 1, 0) * measures.top;
}

// The name of the assigned material has a row with its buttons where it would be short beside the others.
int CChooseMaterialDlg::PlaceBottomControls(int width)
{
    const HWND dialog = GetHandle();
    RECT measures{margin, rowHeight, leastNameWidth, 0};
    MapDialogRect(dialog, &measures);
    const RECT name = GetItemRect(dialog, ML_EDIT_ASSIGNED);
    const int beside = name.right - name.left - (templateWidth - width);
    if (beside >= measures.right)
    {
        WidenItem(dialog, ML_EDIT_ASSIGNED, width - templateWidth);
        return 0;
    }
    for (const int control : {ML_BUTTON_ASSIGN, ML_BUTTON_UNASSIGN, ML_LABEL_ASSIGNED, ML_EDIT_ASSIGNED})
    {
        ShiftItem(dialog, control, 0, -measures.top);
    }
    WidenItem(dialog, ML_EDIT_ASSIGNED, width - measures.left - name.right);
    return measures.top;
}
