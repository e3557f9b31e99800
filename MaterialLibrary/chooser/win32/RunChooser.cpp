#include "chooser/win32/RunChooser.h"

#include "chart/win32/CChartControl.h"
#include "chooser/win32/CChooseMaterialDlg.h"
#include "grid/win32/CGXGridWnd.h"

IMaterial* RunChooser(IMatLib& library, IMaterial* current, int materialKind)
{
    RegisterGridWindowClass();
    CChartControl::RegisterWindowClass();
    CChooseMaterialDlg dialog(library, current, materialKind);
    return dialog.DoModal() == IDOK ? dialog.GetAssigned() : nullptr;
}
