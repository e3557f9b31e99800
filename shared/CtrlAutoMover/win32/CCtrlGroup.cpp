#include "shared/CtrlAutoMover/win32/CCtrlGroup.h"

namespace
{
CtrlRect ControlRect(HWND dialog, HWND control)
{
    RECT rect{};
    GetWindowRect(control, &rect);
    MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&rect), 2);
    return {rect.left, rect.top, rect.right, rect.bottom};
}
} // namespace

CCtrlGroup::CCtrlGroup(const CtrlAnchors& sides, std::initializer_list<int> controlIds) : anchors(sides)
{
    for (const int id : controlIds)
    {
        if (id == 0)
        {
            break;
        }
        controls.push_back({nullptr, id, std::nullopt});
    }
}

void CCtrlGroup::SetProportional(const CtrlFactors& shares, int clientWidth, int clientHeight)
{
    proportional = true;
    factors = shares;
    baseWidth = clientWidth;
    baseHeight = clientHeight;
    for (Ctrl& control : controls)
    {
        control.initial.reset();
    }
}

void CCtrlGroup::AppendMoves(HWND dialog, int clientWidth, int clientHeight, int dx, int dy,
                             std::vector<CtrlMove>& moves)
{
    for (auto control = controls.rbegin(); control != controls.rend(); ++control)
    {
        if (!IsWindow(control->window))
        {
            control->window = GetDlgItem(dialog, control->id);
            control->initial.reset();
        }
        if (control->window == nullptr)
        {
            continue;
        }
        const CtrlRect present = ControlRect(dialog, control->window);
        if (!proportional)
        {
            moves.push_back({control->window, MoveByOffset(present, anchors, dx, dy)});
            continue;
        }
        control->initial = control->initial.value_or(present);
        moves.push_back(
            {control->window, MoveInProportion(*control->initial, anchors, factors, clientWidth - baseWidth,
                                               clientHeight - baseHeight)});
    }
}
