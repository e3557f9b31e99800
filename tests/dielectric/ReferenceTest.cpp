// Every build gives the values of reference_values.txt, which were compared bit for bit with a plain
// transcription of the fit. The native build writes that file anew:
//   ML_WRITE_REFERENCE=1 build/native/tests/test_dielectric --gtest_filter=Reference.*

#include "dielectric/CWidebandDebyeModel.h"
#include "tests/dielectric/Laminates.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>

namespace
{
constexpr const char* referencePath = ML_SOURCE_DIR "/tests/dielectric/reference_values.txt";
constexpr std::uint64_t laminateCount = 240;
constexpr double evaluatedAt[] = {1.7e6, 2.45e9, 4.1e10};

// Tables that no laminate has, for the ways through the fit that laminates do not take.
const Laminate oddLaminates[] = {
    {{{1e9, 4.0}}, {{1e9, 0.02}, {1e9, 0.01}}},
    {{{1e9, -4.0}}, {{1e8, 0.02}, {1e9, 0.02}, {1e10, 0.02}}},
    {{{1e9, 4.0}}, {{1e6, -0.02}, {1e8, -0.01}, {1e10, -0.03}}},
    {{{1e9, 4.0}}, {{1e5, 0.5}, {1e6, 0.0}, {1e8, -0.5}, {1e9, 0.0}, {1e10, 0.5}}},
    {{{1e6, 4.0}, {1e9, 4.2}}, {{1e6, 3.0}, {1e7, 1.5}, {1e8, 0.1}, {1e9, 7.0}}},
    {{{1e9, 4.0}}, {{1e5, 0.02}, {1e12, 0.01}, {1e3, 0.02}, {1e9, 0.03}}},
    {{{1e9, 4.0}}, {{1e4, 0.02}, {1e13, 0.02}, {1e24, 0.02}}},
    // More sets of columns are tried than the search keeps.
    {{{1e9, 4.0}},
     {{1e4, 0.3},
      {8e4, -0.1},
      {6.4e5, -0.2},
      {5.12e6, 0.3},
      {4.096e7, -0.4},
      {3.2768e8, 0.0},
      {2.62144e9, 0.3},
      {2.097152e10, -0.2},
      {1.6777216e11, -0.3},
      {1.34217728e12, 0.3},
      {1.073741824e13, 0.0},
      {8.589934592e13, -0.1},
      {6.8719476736e14, 0.3},
      {5.49755813888e15, -0.3},
      {4.398046511104e16, -0.4},
      {3.5184372088832e17, 0.3},
      {2.81474976710656e18, -0.1},
      {2.251799813685248e19, -0.2}}},
};

// Real and imaginary part of each laminate at each frequency.
std::vector<double> ComputeValues()
{
    std::vector<Laminate> laminates;
    for (std::uint64_t seed = 0; seed < laminateCount; ++seed)
    {
        laminates.push_back(MakeLaminate(10000 + seed, seed % 4 == 0 ? 2 : 0));
    }
    laminates.push_back(MakeLaminate(582, 0)); // the last amplitude is too large at first
    laminates.insert(laminates.end(), std::begin(oddLaminates), std::end(oddLaminates));
    std::vector<double> values;
    for (const Laminate& laminate : laminates)
    {
        const CWidebandDebyeModel model =
            CWidebandDebyeModel::Fit(PrepareData(laminate.er, laminate.loss)).value();
        for (const double f : evaluatedAt)
        {
            values.push_back(model.Evaluate(f).real());
            values.push_back(model.Evaluate(f).imag());
        }
    }
    return values;
}

void WriteValues(const std::vector<double>& values)
{
    std::ofstream file(referencePath, std::ios::binary);
    char line[64];
    for (std::size_t i = 0; i + 1 < values.size(); i += 2)
    {
        std::snprintf(line, sizeof line, "%.17g %.17g\n", values[i], values[i + 1]);
        file << line;
    }
}

std::vector<double> ReadValues()
{
    std::ifstream file(referencePath, std::ios::binary);
    return {std::istream_iterator<double>(file), {}};
}
} // namespace

TEST(Reference, EveryBuildGivesTheSameValues)
{
    const std::vector<double> values = ComputeValues();
    if (std::getenv("ML_WRITE_REFERENCE"))
    {
        WriteValues(values);
    }
    const std::vector<double> expected = ReadValues();
    ASSERT_EQ(expected.size(), values.size());
    double worst = 0.0;
    for (std::size_t i = 0; i < values.size(); ++i)
    {
        const double deviation = std::fabs(values[i] - expected[i]) / std::fabs(expected[i]);
        EXPECT_LE(deviation, 1e-12) << "laminate " << i / 6;
        worst = std::fmax(worst, deviation);
    }
    std::printf("largest relative deviation from the reference: %.2g\n", worst);
}
