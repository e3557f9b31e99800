#include "MaterialLibrary/dielectric/CAmplitudeSearch.h"
#include "MaterialLibrary/dielectric/SvdDecompose.h"

#include <gtest/gtest.h>
#include <limits>
#include <vector>

namespace
{
using Numbers = std::vector<double>;

// Terms that are each seen by one measured point alone, with that strength. The amplitudes are then nearly
// measured / strength, the smoothing being weak.
Numbers Search(const Numbers& strengths, const Numbers& wanted)
{
    const std::size_t n = strengths.size();
    Numbers basis(n * n, 0.0), measured(n);
    for (std::size_t k = 0; k < n; ++k)
    {
        basis[(n + 1) * k] = strengths[k];
        measured[k] = wanted[k] * strengths[k];
    }
    CAmplitudeSearch search(basis, measured, static_cast<int>(n));
    EXPECT_TRUE(search.Run());
    return {search.GetAmplitudes().begin(), search.GetAmplitudes().end()};
}

void ExpectNear(const Numbers& found, const Numbers& expected)
{
    ASSERT_EQ(found.size(), expected.size());
    for (std::size_t k = 0; k < found.size(); ++k)
    {
        EXPECT_NEAR(found[k], expected[k], 0.01) << k;
    }
}

// The last term is weak: its singular value is passed over once the ratio is above about 0.07.
struct AcceptanceCase
{
    const char* name;
    Numbers wanted;
    bool keepsLast;
};

const AcceptanceCase acceptanceCases[] = {
    {"falling to less than half", {3.0, 2.0, 0.9}, true},
    {"rising from less than half", {0.9, 2.0, 3.0}, true},
    {"a peak", {1.0, 6.0, 1.0}, true},
    {"level", {2.0, 2.0, 2.0}, false},
    {"falling slowly", {4.0, 3.0, 2.0}, false},
    {"a dip", {9.0, 2.0, 5.0}, false},
    {"the last more than twice the one before", {0.4, 1.0, 4.0}, false},
};
} // namespace

TEST(AmplitudeSearch, WantsEachInnerAmplitudeTwiceANeighbourBeforeTheLastRatio)
{
    for (const AcceptanceCase& row : acceptanceCases)
    {
        const Numbers found = Search({1.0, 1.0, 0.07}, row.wanted);
        EXPECT_EQ(found[2] > 0.5 * row.wanted[2], row.keepsLast) << row.name << " " << found[2];
        EXPECT_NEAR(found[0], row.wanted[0], 0.01 * row.wanted[0] + 0.05) << row.name;
    }
}

TEST(AmplitudeSearch, TakesNegativeAmplitudesOut)
{
    ExpectNear(Search({1.0, 1.0, 1.0}, {3.0, -1.0, 2.0}), {3.0, 0.0, 2.0});
    // A solve fewer than there are terms: the last answer stands, however negative.
    ExpectNear(Search({1.0, 1.0, 1.0}, {-1.0, -2.0, -3.0}), {-1.0, -2.0, 0.0});
}

TEST(AmplitudeSearch, CountsSingularValuesOfRoundingNoiseAsZero)
{
    // Without the first column the first singular value is 0 and so is the threshold, while the other columns
    // that went out leave values around 1e-17.
    ExpectNear(Search({1.0, 0.9, 0.8, 0.7, 0.6, 0.5}, {-3.0, 2.0, -2.0, 2.0, -1.0, 3.0}),
               {0.0, 2.0, 0.0, 2.0, 0.0, 3.0});
}

TEST(AmplitudeSearch, TruncatesRelativeToTheFirstSingularValueNotTheLargest)
{
    // What there is of the third (about 0.026) is more than a tenth of the first, but not of the largest.
    double rows[6][3] = {{0.25, 0.0, 0.0},   {0.0, 1.0, 0.0},      {0.0, 0.0, 0.015},
                         {0.02, -0.01, 0.0}, {-0.01, 0.02, -0.01}, {0.0, -0.01, 0.02}};
    double v[3][3];
    double* const a[] = {rows[0], rows[1], rows[2], rows[3], rows[4], rows[5]};
    double* const rowsOfV[] = {v[0], v[1], v[2]};
    double w[3];
    ASSERT_TRUE(SvdDecompose(a, 6, 3, w, rowsOfV));
    ASSERT_NEAR(w[0], 0.25, 0.01);
    ASSERT_NEAR(w[1], 1.0, 0.01);
    ASSERT_LT(w[2], 0.03);

    // A dip in the middle: the ratio goes up to its end.
    EXPECT_GT(Search({0.25, 1.0, 0.015}, {8.0, 1.0, 100.0})[2], 10.0);
}

TEST(AmplitudeSearch, FailsWhereTheDecompositionDoes)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const Numbers basis{1.0, nan, nan, 2.0};
    const Numbers measured{1.0, 2.0};
    EXPECT_FALSE(CAmplitudeSearch(basis, measured, 2).Run());
}
