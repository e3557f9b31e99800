#include "framework/CDialog.h"

#include "framework/CModalScope.h"
#include "framework/ModuleResources.h"
#include "framework/WindowScopes.h"

#include <utility>

namespace
{
// To the dialog itself: whatever took the focus from the refused control has come to its end.
constexpr UINT returnToRefused = WM_APP + 0x3A1;

struct DialogStart
{
    CDialog* dialog;
    CModalScope* scope;
};

// The window that a dialog belongs to: the active one, or the last active one of the calling thread's main
// window while another program is in front.
HWND FindOwner()
{
    if (const HWND active = GetActiveWindow())
    {
        return active;
    }
    HWND owner = nullptr;
    const auto takeMainWindow = [](HWND window, LPARAM result) -> BOOL
    {
        if (IsWindowVisible(window) == FALSE || GetWindow(window, GW_OWNER) != nullptr)
        {
            return TRUE;
        }
        *reinterpret_cast<HWND*>(result) = GetLastActivePopup(window);
        return FALSE;
    };
    EnumThreadWindows(GetCurrentThreadId(), takeMainWindow, reinterpret_cast<LPARAM>(&owner));
    return owner;
}

// A dialog keeps the scale of the monitor that it was opened on: its code has measured places and sizes
// there. Older systems never rescale dialogs.
void KeepScale(HWND dialog)
{
    using Function = decltype(&SetDialogDpiChangeBehavior);
    const FARPROC found = GetProcAddress(GetModuleHandleW(L"user32"), "SetDialogDpiChangeBehavior");
    if (const auto setBehaviour = reinterpret_cast<Function>(reinterpret_cast<void*>(found)))
    {
        setBehaviour(dialog, DDC_DISABLE_ALL, DDC_DISABLE_ALL);
    }
}

} // namespace

int CDialog::DoModal()
{
    const HWND owner = FindOwner();
    CModalScope scope;
    DialogStart start{this, &scope};
    listening = true;
    INT_PTR result = -1;
    {
        const CThemedControlsScope themed;
        result = DialogBoxParamW(GetModuleInstance(), MAKEINTRESOURCEW(identifier), owner, Procedure,
                                 reinterpret_cast<LPARAM>(&start));
    }
    scope.RaiseKept();
    return static_cast<int>(result);
}

INT_PTR CALLBACK CDialog::Procedure(HWND window, UINT message, WPARAM /*wParam*/, LPARAM lParam) noexcept
{
    if (message != WM_INITDIALOG)
    {
        return FALSE; // HandleMessage has had it, the dialog manager does the rest
    }
    const DialogStart& start = *reinterpret_cast<const DialogStart*>(lParam);
    start.scope->SetDialog(window);
    KeepScale(window);
    return CallKeepingExceptions(INT_PTR{FALSE},
                                 [&]() -> INT_PTR
                                 {
                                     start.dialog->Attach(window);
                                     return start.dialog->OnInitDialog() ? TRUE : FALSE;
                                 });
}

LRESULT CDialog::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == returnToRefused)
    {
        ReturnToRefused();
        return 0;
    }
    if (message != WM_COMMAND)
    {
        return CWnd::HandleMessage(message, wParam, lParam);
    }
    if (listening && !OnCommand(LOWORD(wParam), HIWORD(wParam)))
    {
        return CWnd::HandleMessage(message, wParam, lParam);
    }
    return 0;
}

bool CDialog::OnCommand(int control, unsigned code)
{
    if (code == BN_CLICKED && control == IDOK)
    {
        OnOK();
        return true;
    }
    if (code == BN_CLICKED && control == IDCANCEL)
    {
        OnCancel();
        return true;
    }
    return false;
}

void CDialog::EndModal(int result)
{
    listening = false; // hiding the dialog takes the focus from its controls
    EndDialog(GetHandle(), result);
}

void CDialog::RefuseText(int control, const std::function<void()>& tellUser)
{
    const bool before = std::exchange(listening, false);
    tellUser();
    SelectText(control);
    listening = before;
    refused = control;
    PostMessageW(GetHandle(), returnToRefused, 0, 0);
}

void CDialog::SelectText(int control)
{
    const HWND edit = GetDlgItem(GetHandle(), control);
    SetFocus(edit);
    SendMessageW(edit, EM_SETSEL, 0, -1);
}

// A control takes the mouse after it has taken the focus, and does not know that a message box came between.
void CDialog::ReturnToRefused()
{
    const int control = std::exchange(refused, 0);
    if (control == 0 || !listening)
    {
        return;
    }
    listening = false;
    ReleaseCapture();
    const auto closeDropDownList = [](HWND child, LPARAM) -> BOOL
    {
        SendMessageW(child, CB_SHOWDROPDOWN, FALSE, 0);
        return TRUE;
    };
    EnumChildWindows(GetHandle(), closeDropDownList, 0);
    SelectText(control);
    listening = true;
}
