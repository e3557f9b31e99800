#pragma once

#include "framework/CWnd.h"

#include <functional>

// A modal dialog made from a template of the module's resources. Position and sizes come from the template's
// dialog units and font. Enter, Escape and Tab are the dialog manager's.
class CDialog : public CWnd
{
public:
    explicit CDialog(unsigned templateIdentifier) : identifier(templateIdentifier) {}

    // Runs the dialog and returns what EndModal was given; -1 when the dialog cannot be made. Its owner is
    // the host's active window, which is disabled meanwhile and active again afterwards. What the dialog's
    // code throws ends the dialog and is thrown from here.
    int DoModal();

    [[nodiscard]] const char* GetRuntimeClassName() const override { return "CDialog"; }

protected:
    // The dialog and its controls exist and are about to be shown. True lets the dialog manager give the
    // focus to the first control.
    virtual bool OnInitDialog() { return true; }

    // A control or a menu notifies. True when it was handled; otherwise IDOK and IDCANCEL go to OnOK and
    // OnCancel. Controls are not listened to during RefuseText and after EndModal.
    virtual bool OnCommand(int control, unsigned code);

    virtual void OnOK() { EndModal(IDOK); }
    virtual void OnCancel() { EndModal(IDCANCEL); }

    // Ends the dialog; DoModal returns `result`.
    void EndModal(int result);

    // Calls `tellUser` for an edit control whose text will not do, and gives it the focus with the whole text
    // selected. All that takes the focus from controls, so the dialog does not listen to them meanwhile. A
    // control that was being clicked on lets the mouse go, and is not clicked.
    void RefuseText(int control, const std::function<void()>& tellUser);

    LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    void SelectText(int control);
    void ReturnToRefused();

    static INT_PTR CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;

    unsigned identifier;
    bool listening = false; // to the controls
    int refused = 0;        // the control whose text will not do
};
