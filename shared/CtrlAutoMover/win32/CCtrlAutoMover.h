#pragma once

#include "framework/CWnd.h"
#include "shared/CtrlAutoMover/win32/CCtrlGroup.h"
#include "shared/SizerGrip/win32/CSizerGrip.h"

#include <limits>
#include <memory>
#include <string>

// Keeps the controls of a resizable dialog in place while users resize it, gives it a minimum size and a
// sizer grip, and reopens it where they left it.
//
// Make it when the dialog's controls exist and before the dialog is shown; it may outlive the window.
class CCtrlAutoMover final : public CWnd
{
public:
    static constexpr int noMinimum = std::numeric_limits<int>::min();

    // The dialog's placement is kept under its run-time class name; that of a plain "CWnd" is not kept. No
    // dialog, or one without a window, is a fatal error.
    explicit CCtrlAutoMover(const CWnd* dialog);
    ~CCtrlAutoMover() override;
    CCtrlAutoMover(const CCtrlAutoMover&) = delete;
    CCtrlAutoMover& operator=(const CCtrlAutoMover&) = delete;

    // Adds controls of the dialog whose sides follow these edges (see CtrlLayout.h) and returns the number of
    // the new group, from 1 on; 0 when there is no control before the end of the list or a zero in it.
    int AddGroup(unsigned anchorLeft, unsigned anchorTop, unsigned anchorRight, unsigned anchorBottom,
                 std::initializer_list<int> controlIds);

    // Lays the group out in proportion to the growth of `window`, the dialog, from its present size on: with
    // factors of 1.0 every size it has had before gives the same layout again. Without such a group nothing
    // happens.
    void SetProportional(int group, HWND window, double left, double top, double right, double bottom);

    void RemoveAllGroups();

    // The smallest size of the dialog's window in pixels.
    int minWidth = noMinimum;
    int minHeight = noMinimum;

    bool keepPlacement = true; // save where the window is when it is destroyed

protected:
    LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    void LimitSize(MINMAXINFO& limits) const;
    void SavePlacement() const;
    void RestorePlacement();
    void Layout(int width, int height);

    std::string section; // of the profile, empty when the placement is not kept
    int lastWidth = 0;
    int lastHeight = 0;
    std::vector<std::unique_ptr<CCtrlGroup>> groups;
    std::unique_ptr<CSizerGrip> grip;
    bool placementRestored = false;
};
