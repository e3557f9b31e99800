#include "shared/CtrlAutoMover/CtrlLayout.h"

#include <gtest/gtest.h>

namespace
{
constexpr CtrlRect button{10, 20, 60, 40};

TEST(CtrlLayout, OnlyTheFarEdgesMoveASide)
{
    const struct
    {
        CtrlAnchors anchors;
        CtrlRect moved;
    } rows[] = {
        {{leftEdge, topEdge, rightEdge, bottomEdge}, {10, 20, 67, 35}},
        {{rightEdge, bottomEdge, rightEdge, bottomEdge}, {17, 15, 67, 35}},
        {{leftEdge, bottomEdge, rightEdge, bottomEdge}, {10, 15, 67, 35}},
        {{leftEdge, topEdge, leftEdge, topEdge}, button},
        {{bottomEdge, rightEdge, bottomEdge, rightEdge}, button}, // codes of the other direction
        {{4, 0xFFFFFFFF, topEdge, leftEdge}, button},             // no codes at all
    };
    for (const auto& row : rows)
    {
        EXPECT_EQ(MoveByOffset(button, row.anchors, 7, -5), row.moved);
        EXPECT_EQ(MoveInProportion(button, row.anchors, {}, 7, -5), row.moved) << "factors of 1.0";
    }
}

TEST(CtrlLayout, SharesAreCutOffTowardsZero)
{
    constexpr CtrlAnchors all{rightEdge, bottomEdge, rightEdge, bottomEdge};
    constexpr CtrlFactors factors{0.5, 0.25, 1.0, 0.5};
    EXPECT_EQ(MoveInProportion(button, all, factors, 7, 7), (CtrlRect{13, 21, 67, 43}));
    EXPECT_EQ(MoveInProportion(button, all, factors, -7, -7), (CtrlRect{7, 19, 53, 37}));
}
} // namespace
