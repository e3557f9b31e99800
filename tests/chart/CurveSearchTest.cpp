#include "chart/CurveSearch.h"

#include "tests/chart/MakeChart.h"

#include <gtest/gtest.h>

namespace
{
class CurveSearch : public ::testing::Test
{
protected:
    CChartModel model = MakeModel();
    CChartCurve rising = MakeCurve({{0, 0}, {50, 50}, {100, 100}});
    CChartCurve falling = MakeCurve({{0, 100}, {100, 0}});

    void SetUp() override
    {
        model.AddCurve(rising, 0, 1);
        model.AddCurve(falling, 0, 1);
        model.SetScaleMode(false, false);
        CRecorderCanvas canvas;
        LayOutChart(model, {0, 0, 600, 400}, canvas);
    }

    [[nodiscard]] PixelPoint GetPixel(DataPoint value) const { return GetPixelOf(model, value); }
};

TEST_F(CurveSearch, HitsTheLastCurveThatPassesNearby)
{
    const struct
    {
        DataPoint at;
        PixelPoint offset;
        std::int64_t hit;
    } rows[] = {
        {{20, 20}, {0, 0}, 0},   {{20, 80}, {0, 0}, 1},          {{50, 50}, {0, 0}, 1},
        {{20, 20}, {0, 4}, 0},   {{20, 20}, {0, 25}, -1},        {{0, 0}, {-3, 3}, 0},
        {{0, 0}, {-4, 4}, -1},   {{100, 0}, {2, 0}, 1},          {{50, 90}, {0, 0}, -1},
        {{100, 100}, {3, 0}, 0}, {{100, 100}, {-300, -900}, -1},
    };
    for (const auto& row : rows)
    {
        const PixelPoint pixel = GetPixel(row.at);
        EXPECT_EQ(HitTest(model, {pixel.x + row.offset.x, pixel.y + row.offset.y}), row.hit)
            << row.at.x << " " << row.at.y << " " << row.offset.y;
    }
    rising.points = {{noNumber, 1}, {noNumber, noNumber}, {5, infinity}};
    falling.points = {{70, 70}}; // a single point has no segment
    EXPECT_EQ(HitTest(model, GetPixel({70, 70})), -1);
}

TEST_F(CurveSearch, ReadsTheNearestPointOfTheColumn)
{
    const PixelPoint middle = GetPixel({50, 50});
    const auto find = [this](PixelPoint at)
    {
        const std::optional<CurvePoint> found = FindNearestPoint(model, at);
        return found ? std::pair(static_cast<int>(found->curve), static_cast<int>(found->point))
                     : std::pair(-1, -1);
    };
    EXPECT_EQ(find(middle), std::pair(0, 1));
    EXPECT_EQ(find({middle.x + 4, middle.y - 60}), std::pair(0, 1));
    EXPECT_EQ(find({middle.x + 5, middle.y}), std::pair(-1, -1));
    EXPECT_EQ(find({model.frame.plot.left - 1, middle.y}), std::pair(-1, -1));
    const PixelPoint origin = GetPixel({0, 0});
    EXPECT_EQ(find({origin.x + 1, origin.y - 2}), std::pair(0, 0));
    EXPECT_EQ(find({origin.x + 1, GetPixel({0, 90}).y}), std::pair(1, 0));
    falling.points = {{50, 60}, {50, 40}, {50, noNumber}, {50, 1e9}};
    EXPECT_EQ(find(middle), std::pair(0, 1));
    rising.points.clear();
    EXPECT_EQ(find(middle), std::pair(1, 0)); // the first of two equally near ones
}

TEST_F(CurveSearch, SnapsOntoTheLastSegmentOrTheNearerEnd)
{
    const auto snap = [this](std::vector<DataPoint> points, double x)
    {
        rising.points = std::move(points);
        const std::optional<SnappedPoint> snapped = SnapToCurve(model, 0, x);
        EXPECT_TRUE(snapped);
        EXPECT_EQ(snapped->pixel, GetPixel(snapped->value));
        return std::pair(snapped->value.x, snapped->value.y);
    };
    EXPECT_EQ(snap({{0, 0}, {10, 20}}, 2.5), std::pair(2.5, 5.0));
    EXPECT_EQ(snap({{10, 20}, {0, 0}}, 2.5), std::pair(2.5, 5.0));
    EXPECT_EQ(snap({{0, 0}, {10, 20}, {0, 40}}, 2.5), std::pair(2.5, 35.0));
    EXPECT_EQ(snap({{5, 0}, {5, 20}}, 5), std::pair(5.0, 10.0)); // upright: its middle
    EXPECT_EQ(snap({{0, 0}, {10, 20}}, 10), std::pair(10.0, 20.0));
    EXPECT_EQ(snap({{0, 0}, {10, 20}}, -1), std::pair(0.0, 0.0));
    EXPECT_EQ(snap({{0, 0}, {10, 20}}, 11), std::pair(10.0, 20.0));
    EXPECT_EQ(snap({{0, 1}, {noNumber, 3}, {10, 2}}, 5), std::pair(0.0, 1.0)); // equally far
    EXPECT_EQ(snap({{7, 8}}, 5), std::pair(7.0, 8.0));
    rising.points.clear();
    EXPECT_FALSE(SnapToCurve(model, 0, 1));
    EXPECT_THROW((void)SnapToCurve(model, 2, 1), std::invalid_argument);
}
} // namespace
