#include "tests/dielectric/FittedModel.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace
{
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double largest = std::numeric_limits<double>::max();
constexpr double smallest = std::numeric_limits<double>::denorm_min();

constexpr const char* badEr = "Wrong input data: negative or zero frequency or Dk";
constexpr const char* tooFew = "Too few data points given for Df above 10 KHz";

// A level laminate with these loss frequencies.
PlainLaminate WithLossAt(const std::vector<double>& frequencies)
{
    return {{1e9}, {4.0}, frequencies, std::vector<double>(frequencies.size(), 0.02)};
}

void ExpectUntouched(const CWidebandDebyeModel& model)
{
    double real = -7.0;
    double imaginary = -8.0;
    EXPECT_FALSE(model.IsReady());
    EXPECT_EQ(model.Evaluate(1e9, real, imaginary), 0);
    EXPECT_EQ(real, -7.0);
    EXPECT_EQ(imaginary, -8.0);
}
} // namespace

TEST(DebyeModel, StartsEmpty)
{
    CWidebandDebyeModel model;
    EXPECT_EQ(model.GetTermCount(), 0);
    EXPECT_TRUE(model.GetTerms().empty());
    EXPECT_EQ(model.GetEpsInf(), 0.0);
    EXPECT_EQ(model.GetModelName(), "default_Name");
    EXPECT_EQ(model.GetErrorText(), "");
    ExpectUntouched(model);
    EXPECT_EQ(model.Fit(), 0);
    ExpectUntouched(model);
    const MLDEBYETERM term;
    EXPECT_TRUE(term.f1 == 1e6 && term.f2 == 1e10 && term.deltaEps == 0.0 && term.g == 1.0);
}

TEST(DebyeModel, RefusesDataItCannotPrepare)
{
    struct Refusal
    {
        PlainLaminate laminate;
        const char* errorText;
    };
    const Refusal refusals[] = {
        {{{1e9}, {4.0}, {1e9}, {0.02}}, ""},
        {{{1e9}, {4.0}, {}, {}}, ""},
        {{{1e9, 0.0}, {4.0, 4.0}, {1e8, 1e9}, {0.02, 0.02}}, badEr},
        {{{1e9, 2e9}, {4.0, -4.0}, {1e8, 1e9}, {0.02, 0.02}}, badEr},
        {WithLossAt({5e3, 2e4}), tooFew},
        {WithLossAt({5e3, 6e3, 9999.9}), tooFew},
        {WithLossAt({notANumber, notANumber}), tooFew},
    };
    for (const Refusal& row : refusals)
    {
        CWidebandDebyeModel model;
        EXPECT_EQ(Prepare(model, row.laminate), 0);
        EXPECT_EQ(model.GetErrorText(), row.errorText);
        ExpectUntouched(model);
    }
    const double f[] = {1e8, 1e9};
    const double y[] = {0.1, 0.1};
    for (int missing = 0; missing < 4; ++missing)
    {
        CWidebandDebyeModel model;
        EXPECT_EQ(model.PrepareData(2, missing == 0 ? nullptr : f, missing == 1 ? nullptr : y, 2,
                                    missing == 2 ? nullptr : f, missing == 3 ? nullptr : y),
                  0);
        EXPECT_EQ(model.GetErrorText(), "");
    }
}

TEST(DebyeModel, PassesOverOnlyLeadingPointsBelow10kHz)
{
    struct Range
    {
        std::vector<double> given, used;
    };
    const Range ranges[] = {
        {{1e4, 1e9}, {1e4, 1e9}},
        {{1e3, 1e4, 1e9}, {1e4, 1e9}},
        {{1e3, 1e5, 2e3, 1e9}, {1e5, 2e3, 1e9}},
        {{notANumber, 1e5, 1e9}, {1e5, 1e9}},
    };
    for (const Range& row : ranges)
    {
        CWidebandDebyeModel model;
        ASSERT_EQ(Prepare(model, WithLossAt(row.given)), 1);
        EXPECT_EQ(std::vector(model.GetPreparedFrequencies().begin(), model.GetPreparedFrequencies().end()),
                  row.used);
        EXPECT_EQ(model.Fit(), 1);
    }
}

TEST(DebyeModel, TakesTheLossTangentForTheAngle)
{
    CWidebandDebyeModel model;
    ASSERT_EQ(Prepare(model, {{1e6, 1e9}, {5.0, 4.0}, {1e3, 1e6, 1e9}, {9.0, 0.5, -1.25}}), 1);
    for (std::size_t k = 0; k < 2; ++k)
    {
        const double er = k == 0 ? 5.0 : 4.0;
        const double angle = k == 0 ? 0.5 : -1.25;
        EXPECT_NEAR(model.GetPreparedRealParts()[k], er * std::cos(angle), 1e-12);
        EXPECT_NEAR(model.GetPreparedImaginaryParts()[k], -er * std::sin(angle), 1e-12);
    }
}

TEST(DebyeModel, LaysTheCornersOnDecades)
{
    struct Grid
    {
        double first, last;
        std::vector<int> exponents; // Empty: no fit.
    };
    const Grid grids[] = {
        {1e9, 1e9, {8, 10, 12}},
        {1e8, 1e9, {7, 8, 10, 12}},
        {2e8, 9e8, {7, 8, 10, 12}},
        {1e6, 1e8, {5, 6, 7, 9, 11}},
        {1e6, 1e9, {5, 6, 7, 8, 10, 12}},
        {1e6, 1e10, {6, 7, 8, 9, 10, 11, 12}},
        {3e6, 2e10, {6, 7, 8, 9, 10, 11, 12, 13}},
        {9.999e5, 1e9, {5, 6, 7, 8, 9, 10, 11}},
        {1e9, 1e8, {}},
        {3e9, 1e7, {}},
        {3e9, 2e8, {8, 10, 12}},
    };
    for (const Grid& row : grids)
    {
        CWidebandDebyeModel model;
        ASSERT_EQ(Prepare(model, WithLossAt({row.first, row.last})), 1);
        EXPECT_EQ(model.Fit(), row.exponents.empty() ? 0 : 1);
        std::vector<double> corners;
        for (const MLDEBYETERM& term : model.GetTerms())
        {
            corners.push_back(term.f1);
            EXPECT_EQ(term.g, 1.0 / std::log(term.f2 / term.f1));
        }
        ASSERT_EQ(corners.size() + (corners.empty() ? 0 : 1), row.exponents.size())
            << row.first << " " << row.last;
        if (!corners.empty())
        {
            corners.push_back(model.GetTerms().back().f2);
        }
        for (std::size_t k = 0; k < corners.size(); ++k)
        {
            EXPECT_EQ(corners[k], std::pow(10.0, row.exponents[k])) << row.first << " " << row.last;
        }
        EXPECT_EQ(static_cast<std::size_t>(model.GetTermCount()), model.GetTerms().size());
    }
}

TEST(DebyeModel, PowersOfTenAreExactDecadesOfTheLogarithm)
{
    for (int exponent = 4; exponent <= 22; ++exponent)
    {
        EXPECT_EQ(std::log10(std::pow(10.0, exponent)), exponent);
        CWidebandDebyeModel model;
        ASSERT_TRUE(PrepareAndFit(model, WithLossAt({1e4, std::pow(10.0, exponent)})));
        EXPECT_EQ(model.GetTermCount(), exponent - 2);
    }
}

TEST(DebyeModel, FailsOnFrequenciesAndNumbersThatGiveNoPermittivity)
{
    for (const double bad : {notANumber, infinity, -infinity, 0.0, -1e9, smallest, -largest})
    {
        // Last: no decades. In between: no logarithm for the trend.
        for (const std::vector<double>& f : {std::vector{1e5, 1e9, bad}, std::vector{1e5, bad, 1e9}})
        {
            CWidebandDebyeModel model;
            ASSERT_EQ(Prepare(model, WithLossAt(f)), 1);
            const bool tinyInBetween = bad == smallest && f[1] == bad;
            EXPECT_EQ(model.Fit(), tinyInBetween ? 1 : 0) << bad;
            EXPECT_EQ(model.IsReady(), tinyInBetween) << bad;
        }
    }
    for (const double bad : {notANumber, infinity, -infinity})
    {
        const PlainLaminate laminates[] = {
            {{1e9}, {bad}, {1e5, 1e9}, {0.02, 0.02}},
            {{1e9, bad}, {4.0, 3.9}, {1e5, 1e9}, {0.02, 0.02}},
            {{1e8, 1e9}, {4.0, bad}, {1e5, 1e9}, {0.02, 0.02}},
            {{1e9}, {4.0}, {1e5, 1e9}, {0.02, bad}},
        };
        for (const PlainLaminate& laminate : laminates)
        {
            CWidebandDebyeModel model;
            EXPECT_FALSE(PrepareAndFit(model, laminate)) << bad;
            ExpectUntouched(model);
        }
    }
}

TEST(DebyeModel, RefusesTablesOverMoreDecadesThanAnyMeasurement)
{
    for (const double last : {1e40, 1e42, 1e43, 1e300, largest})
    {
        CWidebandDebyeModel model;
        EXPECT_EQ(PrepareAndFit(model, WithLossAt({1e4, last})), last <= 1e42) << last;
    }
    // Corners beyond the largest double.
    CWidebandDebyeModel model;
    EXPECT_FALSE(PrepareAndFit(model, WithLossAt({1e306, largest})));
}

TEST(DebyeModel, EvaluatesAnywhereWithoutHarm)
{
    CWidebandDebyeModel model;
    ASSERT_TRUE(PrepareAndFit(model, {{1e6, 1e9}, {4.5, 4.2}, {1e6, 1e8, 1e10}, {0.02, 0.021, 0.022}}));
    double real = 0.0, imaginary = 0.0;
    for (const double f : {0.0, 1.0, 1e9, 1e15, -1e9, smallest, largest, infinity, notANumber})
    {
        EXPECT_EQ(model.Evaluate(f, real, imaginary), 1);
    }
    ASSERT_EQ(model.Evaluate(1e9, real, imaginary), 1);
    EXPECT_NEAR(real, 4.2, 0.1);
    EXPECT_NEAR(-imaginary / real, 0.0215, 0.001);
}

TEST(DebyeModel, EvaluatesToNothingBetweenPrepareAndFit)
{
    CWidebandDebyeModel model;
    ASSERT_EQ(Prepare(model, WithLossAt({1e8, 1e9})), 1);
    double real = 1.0, imaginary = 1.0;
    EXPECT_EQ(model.Evaluate(1e9, real, imaginary), 1);
    EXPECT_EQ(real, 0.0);
    EXPECT_EQ(imaginary, 0.0);
}

TEST(DebyeModel, CopiesTheFitButNotTheReadiness)
{
    CWidebandDebyeModel model;
    ASSERT_TRUE(PrepareAndFit(model, WithLossAt({1e8, 1e9})));
    const CWidebandDebyeModel copy(model);
    EXPECT_EQ(copy.GetTermCount(), 3);
    EXPECT_EQ(copy.GetEpsInf(), model.GetEpsInf());
    EXPECT_EQ(copy.GetModelName(), "default_Name");
    EXPECT_TRUE(copy.GetTerms().empty() && copy.GetPreparedFrequencies().empty());
    ExpectUntouched(copy);
}
