#include "chart/ZoomAndPan.h"
#include "tests/chart/CMouseFixture.h"

namespace
{
using Log = std::vector<std::string>;

class MousePan : public CMouseFixture
{
protected:
    void SetUp() override
    {
        CMouseFixture::SetUp();
        chart.GetInteraction().mode = MouseMode::pan;
        host.TakeLog();
    }
};

TEST_F(MousePan, MovesByWholeTicksAndKeepsTheRemainder)
{
    const int tick = GetTickPixels(Horizontal());
    const int upright = GetTickPixels(Vertical());
    const double step = Horizontal().tickStep;
    const struct
    {
        int dx, dy;
        int ticks, shift;
        int uprightTicks, uprightShift;
    } rows[] = {
        {0, 0, 0, 0, 0, 0},
        {tick - 1, 1 - upright, 0, tick - 1, 0, 1 - upright},
        {tick, -upright, -1, 0, -1, 0},
        {3 * tick + 5, 2 * upright + 3, -3, 5, 2, 3},
        {-2 * tick - 7, -4, 2, -7, 0, -4},
    };
    mouse.OnButtonDown({200, 150});
    for (const auto& row : rows)
    {
        host.TakeLog();
        mouse.OnMove({200 + row.dx, 150 + row.dy});
        EXPECT_EQ(host.TakeLog(), (Log{"invalidate", "notify"})); // at every move
        EXPECT_DOUBLE_EQ(Horizontal().visibleMin, row.ticks * step);
        EXPECT_DOUBLE_EQ(Horizontal().visibleMax, 100 + row.ticks * step);
        EXPECT_EQ(Horizontal().requestedMin, Horizontal().visibleMin);
        EXPECT_EQ(Horizontal().pixelShift, row.shift);
        EXPECT_DOUBLE_EQ(Vertical().visibleMin, row.uprightTicks * Vertical().tickStep);
        EXPECT_EQ(Vertical().pixelShift, row.uprightShift);
    }
}

TEST_F(MousePan, LogarithmicAxesMoveByDecades)
{
    curve.points = {{1, 1}, {1e5, 100}};
    curve.UpdateBounds();
    chart.GetModel().RebuildDataRanges();
    Horizontal().lowerLimit = Vertical().lowerLimit = 1e-9;
    chart.GetModel().SetScaleMode(true, true);
    mouse.OnSize();
    mouse.OnButtonDown({200, 150});
    mouse.OnMove({200 + 2 * GetTickPixels(Horizontal()) + 1, 150 + GetTickPixels(Vertical())});
    EXPECT_DOUBLE_EQ(Horizontal().visibleMin, 1e-2);
    EXPECT_DOUBLE_EQ(Horizontal().visibleMax, 1e3);
    EXPECT_EQ(Horizontal().pixelShift, 1);
    EXPECT_DOUBLE_EQ(Vertical().visibleMin, 10.0);
}

TEST_F(MousePan, AnAxisDoesNotLeaveItsLimits)
{
    const int tick = GetTickPixels(Horizontal());
    Horizontal().lowerLimit = -1.5 * Horizontal().tickStep;
    mouse.OnButtonDown({200, 150});
    mouse.OnMove({200 + tick + 3, 153});
    EXPECT_DOUBLE_EQ(Horizontal().visibleMin, -Horizontal().tickStep);
    EXPECT_EQ(Horizontal().pixelShift, 3);
    mouse.OnMove({200 + 2 * tick - 3, 153}); // the remainder would leave them
    EXPECT_EQ(Horizontal().pixelShift, 0);
    mouse.OnMove({200 + 2 * tick, 153}); // as would the range
    EXPECT_DOUBLE_EQ(Horizontal().visibleMin, -Horizontal().tickStep);
    EXPECT_EQ(Vertical().pixelShift, 3);
}

TEST_F(MousePan, ReleasingRunsOnToTheNextTickIn180Milliseconds)
{
    const int tick = GetTickPixels(Horizontal());
    const int upright = GetTickPixels(Vertical());
    std::vector<std::pair<std::uint32_t, int>> frames;
    host.onUpdate = [&]
    {
        frames.emplace_back(host.now, Horizontal().pixelShift);
        EXPECT_LE(std::abs(Vertical().pixelShift), upright);
        EXPECT_LE(Vertical().pixelShift, -4);
    };
    mouse.OnButtonDown({200, 150});
    mouse.OnMove({200 + tick + 10, 150 - 4});
    host.TakeLog();
    const std::uint32_t before = host.now;
    mouse.OnButtonUp({200 + tick + 10, 150 - 4});
    const std::uint32_t elapsed = host.now - before;
    EXPECT_GE(elapsed, 180u);
    EXPECT_LE(elapsed, 184u);
    EXPECT_GE(frames.size(), 7u);
    EXPECT_LE(frames.size(), 9u);
    EXPECT_GT(host.sleeps, 60u);
    for (std::size_t i = 1; i < frames.size(); ++i)
    {
        EXPECT_GE(frames[i].first - frames[i - 1].first, 20u);
        EXPECT_GT(frames[i].second, frames[i - 1].second);
    }
    EXPECT_GT(frames.front().second, 10);
    EXPECT_LE(frames.back().second, tick);
    EXPECT_EQ(host.Count("notify"), 0);
    EXPECT_EQ(host.Count("update"), static_cast<int>(frames.size()));
    EXPECT_EQ(host.log.front(), "release");
    EXPECT_EQ(host.log.back(), "invalidate");

    EXPECT_DOUBLE_EQ(Horizontal().visibleMin, -2 * Horizontal().tickStep);
    EXPECT_EQ(Horizontal().requestedMin, Horizontal().visibleMin);
    EXPECT_DOUBLE_EQ(Vertical().visibleMin, -Vertical().tickStep); // upwards brings lower values in
    EXPECT_EQ(Horizontal().pixelShift, 0);
    EXPECT_EQ(Vertical().pixelShift, 0);
}

TEST_F(MousePan, SmallRemaindersAndSeveralAxesAreNotAnimated)
{
    const auto pan = [this](int dx)
    {
        host.TakeLog();
        mouse.OnButtonDown({200, 150});
        mouse.OnMove({200 + dx, 150});
        mouse.OnButtonUp({200 + dx, 150});
        EXPECT_EQ(Horizontal().pixelShift, 0);
        return host.Count("update");
    };
    EXPECT_EQ(pan(2), 0);
    EXPECT_EQ(pan(0), 0);
    EXPECT_EQ(Horizontal().visibleMin, 0.0);
    EXPECT_GT(pan(-3), 0);
    EXPECT_DOUBLE_EQ(Horizontal().visibleMin, Horizontal().tickStep);
    chart.GetModel().AddAxis(2, true);
    mouse.OnSize();
    EXPECT_EQ(pan(-9), 0);
}
} // namespace
