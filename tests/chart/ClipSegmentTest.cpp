#include "chart/ClipSegment.h"

#include <bit>
#include <cmath>
#include <gtest/gtest.h>
#include <random>

namespace
{
constexpr DataRect box = {-1, -2, 3, 2};

// The part of the segment within the box by its parameters, or an empty one.
struct Part
{
    long double from = 0;
    long double to = 1;
};

Part FindPart(const DataPoint& a, const DataPoint& b)
{
    Part part;
    const auto cut = [&part](long double start, long double extent, long double lo, long double hi)
    {
        if (extent == 0)
        {
            part.to = start >= lo && start <= hi ? part.to : -1;
            return;
        }
        part.from = std::max(part.from, std::min((lo - start) / extent, (hi - start) / extent));
        part.to = std::min(part.to, std::max((lo - start) / extent, (hi - start) / extent));
    };
    cut(a.x, static_cast<long double>(b.x) - a.x, box.xMin, box.xMax);
    cut(a.y, static_cast<long double>(b.y) - a.y, box.yMin, box.yMax);
    return part;
}

TEST(ClipSegment, CutsToTheBox)
{
    std::mt19937 random(4);
    std::uniform_real_distribution<double> near(-6.0, 6.0);
    int visible = 0;
    for (int i = 0; i < 200'000; ++i)
    {
        const auto pick = [&] { return i % 4 == 0 ? std::round(near(random)) : near(random); };
        const DataPoint a = {pick(), pick()};
        const DataPoint b = {pick(), pick()};
        const Part part = FindPart(a, b);
        DataPoint from = a;
        DataPoint to = b;
        const bool clipped = ClipSegment(box, from, to);
        if (part.to - part.from > 1e-9L || part.to - part.from < -1e-9L)
        {
            ASSERT_EQ(clipped, part.to > part.from) << i;
        }
        if (clipped)
        {
            ++visible;
            ASSERT_EQ(GetOutcode(box, from) | GetOutcode(box, to), 0u);
            ASSERT_NEAR(from.x, static_cast<double>(a.x + part.from * (b.x - a.x)), 1e-9);
            ASSERT_NEAR(from.y, static_cast<double>(a.y + part.from * (b.y - a.y)), 1e-9);
            ASSERT_NEAR(to.x, static_cast<double>(a.x + part.to * (b.x - a.x)), 1e-9);
            ASSERT_NEAR(to.y, static_cast<double>(a.y + part.to * (b.y - a.y)), 1e-9);
        }
    }
    EXPECT_GT(visible, 50'000);
}

TEST(ClipSegment, TakesAnyFiniteNumbers)
{
    DataPoint a = {-1e308, -1e308};
    DataPoint b = {1e308, 1e308};
    ASSERT_TRUE(ClipSegment(box, a, b));
    EXPECT_EQ(GetOutcode(box, a) | GetOutcode(box, b), 0u);
    std::mt19937_64 random(8);
    for (int i = 0; i < 100'000; ++i)
    {
        const auto pick = [&random]
        {
            const auto value = std::bit_cast<double>(random());
            return std::isfinite(value) ? value : 0.0;
        };
        a = {pick(), pick()};
        b = {pick(), pick()};
        if (ClipSegment(box, a, b))
        {
            ASSERT_EQ(GetOutcode(box, a) | GetOutcode(box, b), 0u);
        }
    }
}
// Half of the smallest number is 0.
TEST(ClipSegment, TakesTheSmallestNumbers)
{
    constexpr double smallest = std::numeric_limits<double>::denorm_min();
    DataPoint from = {0.0, 1.0};
    DataPoint to = {smallest, 2.0};
    ASSERT_TRUE(ClipSegment({smallest, 0.0, 1.0, 3.0}, from, to));
    EXPECT_TRUE(from.y >= 1.0 && from.y <= 2.0) << from.y;
}
} // namespace
