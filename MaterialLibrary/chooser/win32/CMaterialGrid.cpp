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
    SetSearchColumn(GetModel().FindColumn(COLUMNKEY_MATERIAL));
}

void CMaterialGrid::OnSelectionChanged()
{
    if (notifier != nullptr)
    {
        notifier->OnSelectionChange();
    }
}

void CMaterialGrid::OnChosenRow()
{
    onChosen();
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
