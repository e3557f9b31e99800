#include "shared/CtrlAutoMover/CtrlLayout.h"

namespace
{
int Share(double factor, int growth)
{
    return static_cast<int>(factor * growth);
}
} // namespace

CtrlRect MoveByOffset(const CtrlRect& control, const CtrlAnchors& anchors, int dx, int dy)
{
    return MoveInProportion(control, anchors, {}, dx, dy);
}

CtrlRect MoveInProportion(const CtrlRect& initial, const CtrlAnchors& anchors, const CtrlFactors& factors,
                          int dx, int dy)
{
    CtrlRect moved = initial;
    moved.left += anchors.left == rightEdge ? Share(factors.left, dx) : 0;
    moved.top += anchors.top == bottomEdge ? Share(factors.top, dy) : 0;
    moved.right += anchors.right == rightEdge ? Share(factors.right, dx) : 0;
    moved.bottom += anchors.bottom == bottomEdge ? Share(factors.bottom, dy) : 0;
    return moved;
}
