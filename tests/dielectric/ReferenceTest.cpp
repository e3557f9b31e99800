// Every build gives the values of reference_values.txt. The native build writes that file anew:
//   ML_WRITE_REFERENCE=1 build/native/tests/test_dielectric --gtest_filter=Reference.*

#include "tests/dielectric/FittedModel.h"
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

// Real and imaginary part of each laminate at each frequency.
std::vector<double> ComputeValues()
{
    std::vector<double> values;
    for (std::uint64_t seed = 0; seed < laminateCount; ++seed)
    {
        CWidebandDebyeModel model;
        EXPECT_TRUE(PrepareAndFit(model, MakeLaminate(10000 + seed, seed % 4 == 0 ? 2 : 0)));
        for (const double f : evaluatedAt)
        {
            double real = 0.0;
            double imaginary = 0.0;
            model.Evaluate(f, real, imaginary);
            values.push_back(real);
            values.push_back(imaginary);
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
