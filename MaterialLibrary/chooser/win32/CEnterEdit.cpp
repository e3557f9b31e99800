#include "chooser/win32/CEnterEdit.h"

LRESULT CEnterEdit::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_GETDLGCODE && wParam == VK_RETURN)
    {
        return CWnd::HandleMessage(message, wParam, lParam) | DLGC_WANTMESSAGE;
    }
    if (message == WM_KEYDOWN && wParam == VK_RETURN)
    {
        onEnter();
        return 0;
    }
    if (message == WM_CHAR && wParam == VK_RETURN)
    {
        return 0; // the control would beep
    }
    return CWnd::HandleMessage(message, wParam, lParam);
}
