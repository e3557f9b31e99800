#include "tests/chart/MakeChart.h"

#include <gmock/gmock.h>

namespace
{
TEST(CChartModel, AxesAreFoundByIdentifierInEitherDirection)
{
    CChartModel model;
    EXPECT_FALSE(model.HasOneAxisPair());
    model.AddAxis(0, false);
    model.AddAxis(1, true);
    EXPECT_TRUE(model.HasOneAxisPair());
    model.AddAxis(1, false); // taken by a vertical axis
    model.AddAxis(0, true);
    EXPECT_TRUE(model.HasOneAxisPair());
    model.AddAxis(2, true);
    EXPECT_FALSE(model.HasOneAxisPair());
    EXPECT_EQ(model.GetAxes(Direction::Horizontal).size(), 1u);
    EXPECT_EQ(model.GetAxes(Direction::Vertical).size(), 2u);
    EXPECT_EQ(model.FindAxis(2), &model.GetAxes(Direction::Vertical)[1]);
    EXPECT_EQ(model.FindAxis(Direction::Horizontal, 2), nullptr);
    EXPECT_EQ(model.FindAxis(3), nullptr);
    for (const std::int64_t beyond : {-1, 2, 1'000})
    {
        EXPECT_THROW((void)model.GetAxis(Direction::Vertical, beyond), std::invalid_argument);
        EXPECT_THROW((void)model.GetCurve(beyond), std::invalid_argument);
    }
    model.SetAxisTitle(77, "nobody", "");
    model.ClearAutomaticPrefix(77);
    CAxis& axis = *model.FindAxis(2);
    axis.axisColour = axis.gridColour = 0x123456;
    model.SetAxisTitle(2, "title", "unit");
    EXPECT_EQ(axis.title + axis.unit, "titleunit");
    EXPECT_EQ(axis.axisColour, 0xFFFFFFu);
    EXPECT_EQ(axis.gridColour, 0x808080u);
}

TEST(CChartModel, DataRangesCoverTheCurvesOfTheAxis)
{
    CChartModel model = MakeModel(1);
    CChartCurve first = MakeCurve({{3, 5}, {1, 7}});
    CChartCurve second = MakeCurve({{9, -1}, {4, 2}});
    CChartCurve other = MakeCurve({{2, 100}});
    EXPECT_EQ(model.AddCurve(first, 5, 1), 0); // every curve is bound to the horizontal axis 0
    EXPECT_EQ(model.GetCurve(0).horizontalAxis, 0);
    EXPECT_EQ(model.AddCurve(other, 0, 2), 1);
    EXPECT_EQ(model.AddCurve(second, 0, 1), 2);
    const auto expectRange = [&model](std::int32_t identifier, double lo, double hi)
    {
        EXPECT_EQ(model.FindAxis(identifier)->dataMin, lo) << identifier;
        EXPECT_EQ(model.FindAxis(identifier)->dataMax, hi) << identifier;
    };
    expectRange(0, 1, 9);
    expectRange(1, -1, 7);
    expectRange(2, 100, 100);
    EXPECT_EQ(model.FindAxis(0)->requestedMax, 0.0);
    model.ResetRanges();
    EXPECT_EQ(model.FindAxis(0)->requestedMax, 9.0);

    CChartCurve empty = MakeCurve({});
    model.AddCurve(empty, 0, 2); // its box is that of the origin
    expectRange(0, 0, 9);
    expectRange(2, 0, 100);
    second.points[0].y = -20;
    second.UpdateBounds();
    model.RebuildDataRanges();
    expectRange(1, -20, 7);
    for (CChartCurve* const curve : {&first, &second})
    {
        curve->points.clear();
        curve->UpdateBounds();
    }
    model.RebuildDataRanges();
    expectRange(1, 0, 0);
    model.RemoveCurves();
    expectRange(0, 0, 0);
    EXPECT_EQ(model.FindAxis(0)->requestedMax, 0.0);
}

TEST(CChartCurve, BoundsLeaveOutWhatIsNoPoint)
{
    const struct
    {
        std::vector<DataPoint> points;
        DataRect bounds;
    } rows[] = {{{}, {}},
                {{{2, -3}}, {2, -3, 2, -3}},
                {{{2, 5}, {1, 9}, {3, 4}}, {1, 4, 3, 9}},
                {{{noNumber, 1}, {2, 3}, {4, infinity}, {5, 1}}, {2, 1, 5, 3}},
                {{{noNumber, noNumber}}, {}}};
    for (const auto& row : rows)
    {
        const CChartCurve curve = MakeCurve(row.points);
        EXPECT_EQ(curve.bounds.xMin, row.bounds.xMin);
        EXPECT_EQ(curve.bounds.yMin, row.bounds.yMin);
        EXPECT_EQ(curve.bounds.xMax, row.bounds.xMax);
        EXPECT_EQ(curve.bounds.yMax, row.bounds.yMax);
    }
    CChartCurve curve = MakeCurve({{1, 2}, {3, 4}});
    curve.pointLabels = {"first"};
    EXPECT_EQ(curve.GetPointLabel(0), "first");
    EXPECT_EQ(curve.GetPointLabel(-1), "");
    EXPECT_EQ(curve.GetPointLabel(1), "");
    EXPECT_EQ(curve.GetPoint(0).y, 2.0);
    EXPECT_EQ(curve.GetPoint(1).y, 4.0);
    for (const std::int32_t index : {-1, 2})
    {
        EXPECT_THAT([&] { (void)curve.GetPoint(index); },
                    testing::ThrowsMessage<std::out_of_range>("invalid vector<T> subscript"));
    }
}

TEST(CChartModel, IsLogarithmicOnlyWhereEveryAxisStaysAboveZero)
{
    CChartModel model = MakeModel(1);
    CChartCurve curve = MakeCurve({{1, 2}, {10, 4}});
    model.AddCurve(curve, 0, 1);
    const auto isLogarithmic = [&model](Direction direction)
    { return model.GetScale(direction).IsLogarithmic(); };
    model.SetScaleMode(true, true);
    EXPECT_FALSE(isLogarithmic(Direction::Horizontal));
    EXPECT_FALSE(isLogarithmic(Direction::Vertical));
    model.FindAxis(0)->lowerLimit = 1e-3;
    model.FindAxis(1)->lowerLimit = 1e-3;
    model.FindAxis(0)->pixelShift = 7;
    model.FindAxis(1)->requestedMax = 77;
    model.SetScaleMode(true, true);
    EXPECT_TRUE(isLogarithmic(Direction::Horizontal));
    EXPECT_FALSE(isLogarithmic(Direction::Vertical)); // axis 2
    EXPECT_EQ(model.FindAxis(0)->pixelShift, 0);
    EXPECT_EQ(model.FindAxis(1)->requestedMax, 4.0);
    model.FindAxis(2)->lowerLimit = 1.0;
    model.SetScaleMode(false, true);
    EXPECT_FALSE(isLogarithmic(Direction::Horizontal));
    EXPECT_TRUE(isLogarithmic(Direction::Vertical));
}

TEST(CChartModel, AxisRangeIsOneStepWiderButNotBeyondTheData)
{
    CChartModel model = MakeModel();
    model.FindAxis(1)->lowerLimit = 1e-9;
    model.SetScaleMode(false, true);
    const struct
    {
        std::int32_t axis;
        double dataMin, dataMax, visibleMin, visibleMax, step;
        double lo, hi;
    } rows[] = {{0, 0, 1'000, 40, 60, 5, 35, 65},
                {0, 38, 61, 40, 60, 5, 38, 61},
                {1, 1e-9, 1e9, 1e-3, 1e3, 2, 1e-5, 1e5}};
    for (const auto& row : rows)
    {
        CAxis& axis = *model.FindAxis(row.axis);
        axis.dataMin = row.dataMin;
        axis.dataMax = row.dataMax;
        axis.visibleMin = row.visibleMin;
        axis.visibleMax = row.visibleMax;
        axis.tickStep = row.step;
        double lo = 0;
        double hi = 0;
        EXPECT_TRUE(model.GetAxisRange(row.axis, lo, hi));
        EXPECT_EQ(lo, row.lo);
        EXPECT_EQ(hi, row.hi);
        EXPECT_FALSE(model.GetAxisRange(9, lo, hi));
        EXPECT_EQ(lo, row.lo);
    }
}
} // namespace
