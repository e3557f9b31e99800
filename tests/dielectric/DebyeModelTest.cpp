#include "tests/dielectric/FittedModel.h"

#include <gtest/gtest.h>

namespace
{
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

TEST(DebyeModel, RefusesDataItCannotPrepare)
{
    struct Refusal
    {
        PlainLaminate laminate;
        const char* errorText;
    };
    const Refusal refusals[] = {
        {{{1e9}, {4.0}, {1e9}, {0.02}}, ""},
        {{{1e9, 2e9}, {4.0, -4.0}, {1e8, 1e9}, {0.02, 0.02}},
         "Wrong input data: negative or zero frequency or Dk"},
        {WithLossAt({5e3, 6e3, 9999.9}), "Too few data points given for Df above 10 KHz"},
    };
    for (const Refusal& row : refusals)
    {
        CWidebandDebyeModel model;
        EXPECT_EQ(Prepare(model, row.laminate), 0);
        EXPECT_EQ(model.GetErrorText(), row.errorText);
        EXPECT_EQ(model.Fit(), 0);
        ExpectUntouched(model);
    }
    const double numbers[] = {1e8, 1e9};
    for (int missing = 0; missing < 4; ++missing)
    {
        const double* given[] = {numbers, numbers, numbers, numbers};
        given[missing] = nullptr;
        CWidebandDebyeModel model;
        EXPECT_EQ(model.PrepareData(2, given[0], given[1], 2, given[2], given[3]), 0);
    }
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
    EXPECT_TRUE(copy.GetTerms().empty() && copy.GetPreparedFrequencies().empty());
    ExpectUntouched(copy);
}
