#include "dielectric/CAmplitudeSearch.h"
#include "dielectric/CModelFitter.h"

#include <cmath>
#include <gtest/gtest.h>
#include <random>

namespace
{
using Rows = std::vector<MLTBLENTRY>;

const Rows constant = {{1e9, 4.0}};

TEST(PrepareData, RefusesTablesWithTheirReason)
{
    struct Row
    {
        Rows er, loss;
        const char* errorText;
    };
    const char* const notPositive = "Wrong input data: negative or zero frequency or Dk";
    const char* const tooFew = "Too few data points given for Df above 10 KHz";
    const Row refused[] = {
        {{}, {{1e8, 0.02}, {1e9, 0.02}}, ""},
        {constant, {{1e9, 0.02}}, ""},
        {{{1e9, 4.0}, {2e9, -4.0}}, {{1e8, 0.02}, {1e9, 0.02}}, notPositive},
        {{{0.0, 4.0}, {2e9, 4.0}}, {{1e8, 0.02}, {1e9, 0.02}}, notPositive},
        {constant, {{5e3, 0.02}, {6e3, 0.02}, {9999.9, 0.02}}, tooFew},
        {constant, {{5e3, 0.02}, {2e4, 0.02}}, tooFew},
    };
    for (const Row& row : refused)
    {
        const PreparedData data = PrepareData(row.er, row.loss);
        EXPECT_EQ(data.errorText, row.errorText);
        EXPECT_TRUE(data.frequencies.empty() && data.realParts.empty() && data.imaginaryParts.empty());
        EXPECT_FALSE(CWidebandDebyeModel::Fit(data));
    }
}

// Rows: an Er table and the permittivity that it gives at 100 MHz; the loss angle there is 0.5.
TEST(PrepareData, MakesALineOfErAndAnAngleOfTheLossTangent)
{
    struct Row
    {
        Rows er;
        double expected;
    };
    const Row rows[] = {
        {{{1e9, -4.0}}, -4.0}, // a single one whatever its sign
        {{{1e6, 4.5}, {1e9, 4.2}}, 4.3},
        {{{1e9, 4.0}, {1e9, 5.0}}, 4.5},             // the mean where all are at one frequency
        {{{1.0, 4.0}, {1.0, 4.2}}, 4.1},             // also where ln f is 0
        {{{1.0, 4.0}, {1e6, 5.0}, {1.0, 6.0}}, 5.0}, // level on the whole
        {{{1e9, 5.0}, {1.5e9, 4.9}}, 5.0 + 0.1 * std::log(10.0) / std::log(1.5)},
        {{{1e6, 4.0}, {1e9, 4.2}}, 8.2},                 // the sum where it rises,
        {{{1e3, 9.0}, {1e4, 3.0}}, 12.0},                // where it falls below 0 before 100 GHz,
        {{{1e-9, 1e-3}, {1e-3, 1e-9}}, 1e-3 + 1e-9},     // and where it starts there
        {{{1e6, 2.07}, {1e7, 2.07}, {1e9, 2.07}}, 2.07}, // level in spite of rounding
    };
    for (const Row& row : rows)
    {
        const PreparedData data = PrepareData(row.er, Rows{{9999.0, 0.1}, {1e8, 0.5}, {5e3, 0.02}});
        ASSERT_EQ(data.frequencies, (std::vector{1e8, 5e3})); // a later one below 10 kHz counts
        EXPECT_NEAR(data.realParts[0], row.expected * std::cos(0.5), 1e-11);
        EXPECT_NEAR(data.imaginaryParts[0], -row.expected * std::sin(0.5), 1e-11);
    }
}

// Rows: first and last frequency and the exponents of the corners, none where there is no model.
TEST(CWidebandDebyeModel, PlacesItsTermsOnAGridOfDecades)
{
    struct Row
    {
        double first, last;
        std::vector<int> exponents;
    };
    const Row rows[] = {
        {1e8, 1e9, {7, 8, 10, 12}},
        {2e8, 9e8, {7, 8, 10, 12}},
        {1e6, 1e9, {5, 6, 7, 8, 10, 12}},
        {1e6, 1e10, {6, 7, 8, 9, 10, 11, 12}},
        {1e8, 1e22, {8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20, 21, 22, 23, 24}},
        {3e9, 2e8, {8, 10, 12}}, // descending, but two decades remain
        {1e9, 1e8, {}},
        {1e4, 1e43, {}}, // too many decades
    };
    for (const Row& row : rows)
    {
        const auto model =
            CWidebandDebyeModel::Fit(PrepareData(constant, Rows{{row.first, 0.02}, {row.last, 0.02}}));
        ASSERT_EQ(model.has_value(), !row.exponents.empty()) << row.first;
        for (std::size_t k = 0; k + 1 < row.exponents.size(); ++k)
        {
            ASSERT_EQ(model->GetTerms().size(), row.exponents.size() - 1);
            const MLDEBYETERM& term = model->GetTerms()[k];
            EXPECT_EQ(term.f1, std::pow(10.0, row.exponents[k]));
            EXPECT_EQ(term.f2, std::pow(10.0, row.exponents[k + 1]));
            EXPECT_EQ(term.g, 1.0 / std::log(term.f2 / term.f1));
        }
    }
}

TEST(CWidebandDebyeModel, IsAValueThatKnowsItsRange)
{
    const auto fit = [](double loss) {
        return CWidebandDebyeModel::Fit(PrepareData(constant, Rows{{1e8, loss}, {1e6, 0.02}, {1e9, 0.02}}));
    };
    CWidebandDebyeModel model = fit(0.02).value();
    const CWidebandDebyeModel copy = model;
    EXPECT_EQ(copy, fit(0.02).value());
    model = fit(0.03).value();
    EXPECT_NE(copy, model);
    EXPECT_EQ(copy.Evaluate(2e8), fit(0.02)->Evaluate(2e8));
    EXPECT_EQ(copy.GetLowestFrequency(), 1e6);
    EXPECT_EQ(copy.GetHighestFrequency(), 1e9);
}

TEST(CWidebandDebyeModel, IsNotFittedToNumbersThatAreNoPermittivity)
{
    for (const double bad : {double{NAN}, HUGE_VAL, -HUGE_VAL, -1e9})
    {
        EXPECT_FALSE(
            CWidebandDebyeModel::Fit(PrepareData(constant, Rows{{1e5, 0.02}, {bad, 0.02}, {1e9, 0.02}})));
        EXPECT_FALSE(CWidebandDebyeModel::Fit(
            PrepareData(Rows{{1e9, bad * HUGE_VAL}}, Rows{{1e5, 0.02}, {1e9, 0.02}})));
    }
    EXPECT_FALSE(CWidebandDebyeModel::Fit(PrepareData(constant, Rows{{1e5, 0.02}, {1e9, HUGE_VAL}})));
    const double measured[] = {1.0, 2.0};
    EXPECT_FALSE(CAmplitudeSearch({1.0, NAN, NAN, 2.0}, 2).Run(measured));
}

// More lists of frequencies than are kept, some of one length, one too long to be kept, and losses that take
// other columns each time.
TEST(CModelFitter, GivesTheModelsOfASingleFit)
{
    std::mt19937 random(1);
    std::uniform_real_distribution<double> loss(0.001, 0.03);
    const std::size_t longest = CDecompositions::longestKept;
    CModelFitter fitter;
    for (int i = 0; i < 400; ++i)
    {
        const std::size_t points = i % 40 == 0 ? longest + 1 : 4 + random() % 7;
        const auto decades = static_cast<double>(4 + random() % 2);
        Rows rows;
        for (std::size_t k = 0; k < points; ++k)
        {
            const double place = static_cast<double>(k) / static_cast<double>(points);
            rows.push_back({std::pow(10.0, 6.0 + decades * place), loss(random)});
        }
        const PreparedData data = PrepareData(constant, rows);
        const auto model = fitter.Fit(data);
        ASSERT_TRUE(model && model == CWidebandDebyeModel::Fit(data)) << i;
        const CDebyeBasis* const basis = fitter.FindBasis(data.frequencies);
        ASSERT_EQ(basis != nullptr, points <= longest) << i;
        for (std::size_t k = 0; basis != nullptr && k < points; ++k)
        {
            ASSERT_EQ(model->EvaluateReal(*basis).at(k), model->EvaluateReal(rows[k].frequency)) << i;
        }
    }
    EXPECT_FALSE(fitter.Fit({}));
    EXPECT_FALSE(fitter.Fit(PrepareData(constant, Rows{{1e9, 0.02}, {1e8, 0.02}})));
}
} // namespace
