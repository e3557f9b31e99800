#include "tests/dielectric/FittedModel.h"
#include "tests/dielectric/Laminates.h"

#include <bit>
#include <gtest/gtest.h>

namespace
{
struct Tally
{
    int fitted = 0, severalSolves = 0, onePass = 0, firstNotLargest = 0, negative = 0;
};

std::uint64_t Bits(double x)
{
    return std::bit_cast<std::uint64_t>(x);
}

void ExpectSameFit(const PlainLaminate& laminate, Tally& tally)
{
    PlainFit plain;
    const bool fitted = plain.Prepare(laminate) && plain.Fit();
    CWidebandDebyeModel model;
    ASSERT_EQ(PrepareAndFit(model, laminate), fitted);
    ASSERT_EQ(model.GetErrorText(), plain.errorText);
    if (!fitted)
    {
        return;
    }
    ASSERT_EQ(model.GetTerms().size(), plain.terms.size());
    for (std::size_t k = 0; k < plain.terms.size(); ++k)
    {
        const MLDEBYETERM& ours = model.GetTerms()[k];
        const PlainTerm& theirs = plain.terms[k];
        EXPECT_EQ(Bits(ours.f1), Bits(theirs.f1)) << k;
        EXPECT_EQ(Bits(ours.f2), Bits(theirs.f2)) << k;
        EXPECT_EQ(Bits(ours.g), Bits(theirs.g)) << k;
        EXPECT_EQ(Bits(ours.deltaEps), Bits(theirs.deltaEps)) << k;
        tally.negative += theirs.deltaEps < 0.0 ? 1 : 0;
    }
    EXPECT_EQ(Bits(model.GetEpsInf()), Bits(plain.epsInf));
    for (const double f : {1.0, 1.7e6, 3.3e8, 1e9, 4.1e10, 1e14})
    {
        double real = 0.0, imaginary = 0.0, plainReal = 0.0, plainImaginary = 0.0;
        ASSERT_EQ(model.Evaluate(f, real, imaginary), 1);
        ASSERT_TRUE(plain.Evaluate(f, plainReal, plainImaginary));
        EXPECT_EQ(Bits(real), Bits(plainReal)) << f;
        EXPECT_EQ(Bits(imaginary), Bits(plainImaginary)) << f;
    }
    ++tally.fitted;
    tally.severalSolves += plain.solves > plain.passes ? 1 : 0;
    tally.onePass += plain.passes == 1 ? 1 : 0;
    tally.firstNotLargest += plain.firstSingularValueWasLargest ? 0 : 1;
}
} // namespace

TEST(PlainFit, AgreesBitForBitOnLaminates)
{
    Tally tally;
    for (std::uint64_t seed = 0; seed < 800; ++seed)
    {
        SCOPED_TRACE(seed);
        ExpectSameFit(MakeLaminate(seed, seed % 4 == 0 ? 2 : 0), tally);
    }
    EXPECT_EQ(tally.fitted, 800);
    // The set is of use only if it meets every way through the passes.
    EXPECT_GT(tally.severalSolves, 40);
    EXPECT_GT(tally.onePass, 40);
    EXPECT_GT(tally.firstNotLargest, 20);
    EXPECT_GT(tally.negative, 10);
}

TEST(PlainFit, AgreesBitForBitOnOddTables)
{
    const PlainLaminate laminates[] = {
        {{1e9}, {4.0}, {1e9, 1e9}, {0.02, 0.02}},
        {{1e9}, {4.0}, {1e9, 1e9}, {0.02, 0.01}},
        {{1e9}, {-4.0}, {1e8, 1e9, 1e10}, {0.02, 0.02, 0.02}},
        {{1e9}, {4.0}, {1e6, 1e8, 1e10}, {-0.02, -0.01, -0.03}},
        {{1e9}, {4.0}, {1e6, 1e8, 1e10}, {0.0, 0.0, 0.0}},
        {{1e9}, {0.0}, {1e6, 1e8, 1e10}, {0.1, 0.1, 0.1}},
        {{1e9}, {4.0}, {1e5, 1e6, 1e8, 1e9, 1e10}, {0.5, 0.0, -0.5, 0.0, 0.5}},
        {{1e6, 1e9}, {4.0, 4.2}, {1e6, 1e7, 1e8, 1e9}, {3.0, 1.5, 0.1, 7.0}},
        {{1.0, 1.0}, {4.0, 4.2}, {1e4, 1e9}, {0.02, 0.03}},
        {{1e9, 1e9}, {3.0, 5.0}, {1e5, 2e3, 1e9}, {0.02, 0.01, 0.02}},
        {{1e9}, {4.0}, {1e5, 1e12, 1e3, 1e9}, {0.02, 0.01, 0.02, 0.03}},
        {{1e9}, {1e300}, {1e8, 1e9}, {0.02, 0.02}},
        {{1e9}, {1e-300}, {1e8, 1e9}, {0.02, 0.03}},
        {{1e9, 2e9}, {4.0, 3.9}, {1e4, 1e9}, {1e300, -1e300}},
        {{1e9}, {4.0}, {1e9, 1e6}, {0.02, 0.02}},
        {{1e9}, {4.0}, {1e5, -1e6, 1e9}, {0.02, 0.02, 0.02}},
        {{-1e9, 1e9}, {4.0, 4.0}, {1e5, 1e9}, {0.02, 0.02}},
        {{1e9}, {4.0}, {1e3, 1e9}, {0.02, 0.02}},
    };
    Tally tally;
    for (const PlainLaminate& laminate : laminates)
    {
        SCOPED_TRACE(&laminate - laminates);
        ExpectSameFit(laminate, tally);
    }
    EXPECT_EQ(tally.fitted, 14);
}

TEST(PlainFit, AgreesBitForBitWhereMoreSetsOfColumnsAreTriedThanAreKept)
{
    PlainLaminate laminate{{1e9}, {4.0}, {}, {}};
    double f = 1e4;
    for (int k = 0; k < 18; ++k)
    {
        laminate.lossFrequencies.push_back(f);
        laminate.lossValues.push_back(k % 3 == 0 ? 0.3 : k % 5 * -0.1);
        f *= 8.0;
    }
    Tally tally;
    ExpectSameFit(laminate, tally);
    EXPECT_EQ(tally.severalSolves, 1);
}

TEST(PlainFit, IsTheSameAtEveryCall)
{
    const PlainLaminate laminate = MakeLaminate(5);
    CWidebandDebyeModel first, again;
    ASSERT_TRUE(PrepareAndFit(first, laminate) && PrepareAndFit(again, laminate) &&
                PrepareAndFit(again, laminate));
    for (std::size_t k = 0; k < first.GetTerms().size(); ++k)
    {
        EXPECT_EQ(Bits(first.GetTerms()[k].deltaEps), Bits(again.GetTerms()[k].deltaEps));
    }
    EXPECT_EQ(Bits(first.GetEpsInf()), Bits(again.GetEpsInf()));
}
