#pragma once

// A control in client pixels of its dialog.
struct CtrlRect
{
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;

    friend bool operator==(const CtrlRect&, const CtrlRect&) = default;
};

// Which edge of the dialog a side of a control follows. Only the far edges move: a horizontal side moves with
// the right one, a vertical side with the bottom one. With any other code a side stays where it is.
inline constexpr unsigned leftEdge = 0;
inline constexpr unsigned topEdge = 1;
inline constexpr unsigned rightEdge = 2;
inline constexpr unsigned bottomEdge = 3;

struct CtrlAnchors
{
    unsigned left = leftEdge;
    unsigned top = topEdge;
    unsigned right = leftEdge;
    unsigned bottom = topEdge;
};

// What part of the dialog's growth a moving side takes.
struct CtrlFactors
{
    double left = 1.0;
    double top = 1.0;
    double right = 1.0;
    double bottom = 1.0;
};

// The control after its dialog has grown by (dx, dy) since the last layout.
[[nodiscard]] CtrlRect MoveByOffset(const CtrlRect& control, const CtrlAnchors& anchors, int dx, int dy);

// The control, initially at `initial`, when its dialog has grown by (dx, dy) in all. Moving sides take whole
// pixels, cut off towards zero; nothing accumulates over many sizes.
[[nodiscard]] CtrlRect MoveInProportion(const CtrlRect& initial, const CtrlAnchors& anchors,
                                        const CtrlFactors& factors, int dx, int dy);
