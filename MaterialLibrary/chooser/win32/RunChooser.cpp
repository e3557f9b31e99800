#include "MaterialLibrary/chooser/win32/RunChooser.h"

#include "grid/win32/CGXGridWnd.h"

#include "MaterialLibrary/chart/win32/CChartControl.h"
#include "MaterialLibrary/chooser/win32/CChooseMaterialDlg.h"

IMaterial* RunChooser(IMatLib& library, IMaterial* current, int materialKind)
{
    RegisterGridWindowClass();
    CChartControl::RegisterWindowClass();
    CChooseMaterialDlg dialog(library, current, materialKind);
    return dialog.DoModal() == IDOK ? dialog.GetAssigned() : nullptr;
}
