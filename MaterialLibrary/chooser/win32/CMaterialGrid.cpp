#include "chooser/win32/CMaterialGrid.h"

#include "chooser/ISelectionChangeNotifier.h"

void CMaterialGrid::SetNotifier(ISelectionChangeNotifier* newNotifier)
{
    notifier = newNotifier;
    rows.SetNotifier(newNotifier);
}

void CMaterialGrid::SetUp(int materialKind)
{
    Initialise();
    rows.SetUp(materialKind);
}

void CMaterialGrid::OnSelectionChanged()
{
    if (notifier != nullptr)
    {
        notifier->OnSelectionChange();
    }
}

bool CMaterialGrid::OnClickedCell(GridCell cell)
{
    if (cell.row != 0 || cell.column == 0)
    {
        return false;
    }
    rows.ClickHeader(cell.column);
    return true;
}
