#pragma once

#include "shared/CtrlAutoMover/CtrlLayout.h"

#include <windows.h>

#include <initializer_list>
#include <optional>
#include <vector>

// A control and where it is to go.
struct CtrlMove
{
    HWND window = nullptr;
    CtrlRect rect;
};

// Controls of a dialog that keep their place in the same way when its size changes.
class CCtrlGroup
{
public:
    // A zero among the control ids ends the list.
    CCtrlGroup(const CtrlAnchors& sides, std::initializer_list<int> controlIds);
    virtual ~CCtrlGroup() = default;
    CCtrlGroup(const CCtrlGroup&) = delete;
    CCtrlGroup& operator=(const CCtrlGroup&) = delete;

    [[nodiscard]] bool IsEmpty() const { return controls.empty(); }

    // Lays the group out in proportion from now on, measured from the dialog's present client size and the
    // controls' places at the next layout.
    void SetProportional(const CtrlFactors& shares, int clientWidth, int clientHeight);

    // Appends where the controls go now that the client area of `dialog` has that size, grown by (dx, dy)
    // since the last layout. A control that the dialog lacks is left out.
    void AppendMoves(HWND dialog, int clientWidth, int clientHeight, int dx, int dy,
                     std::vector<CtrlMove>& moves);

private:
    struct Ctrl
    {
        HWND window = nullptr; // looked up when it is first needed
        int id = 0;
        std::optional<CtrlRect> initial; // where it was at the first proportional layout
    };

    CtrlAnchors anchors;
    std::vector<Ctrl> controls;
    bool proportional = false;
    CtrlFactors factors;
    int baseWidth = 0;
    int baseHeight = 0;
};
