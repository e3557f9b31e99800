#pragma once

#include "framework/CWnd.h"

#include <optional>

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
    // OnCancel. Controls are not listened to during ReadNumber and after EndModal.
    virtual bool OnCommand(int control, unsigned code);

    virtual void OnOK() { EndModal(IDOK); }
    virtual void OnCancel() { EndModal(IDCANCEL); }

    // Ends the dialog; DoModal returns `result`.
    void EndModal(int result);

    // The decimal number in an edit control, blanks around it allowed. When it is none, the user is told, the
    // control gets the focus with its whole text selected, and the answer is nothing.
    [[nodiscard]] std::optional<double> ReadNumber(int control);

    LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    static INT_PTR CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;
    void RefuseNumber(HWND control);

    unsigned identifier;
    bool listening = false; // to the controls
};
