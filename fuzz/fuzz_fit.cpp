// Tables of any doubles: the fit must come to an end without undefined behaviour, and where it is small
// enough to be done the plain way as well, both must agree bit for bit.

#include "dielectric/CWidebandDebyeModel.h"
#include "tests/dielectric/PlainFit.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <vector>

namespace
{
// Two bytes with the counts of points, then the doubles of both tables in the order of PrepareData. Where the
// bytes end, 0 is taken.
class CBytes
{
public:
    CBytes(const std::uint8_t* bytes_, std::size_t count_) : bytes(bytes_), count(count_) {}

    std::size_t TakeCount(std::size_t limit)
    {
        if (count == 0)
        {
            return 0;
        }
        --count;
        return *bytes++ % (limit + 1);
    }

    std::vector<double> TakeDoubles(std::size_t wanted)
    {
        std::vector<double> doubles(wanted);
        const std::size_t taken = std::min(count, wanted * sizeof(double));
        if (taken > 0)
        {
            std::memcpy(doubles.data(), bytes, taken);
        }
        bytes += taken;
        count -= taken;
        return doubles;
    }

private:
    const std::uint8_t* bytes;
    std::size_t count;
};

void Require(bool condition)
{
    if (!condition)
    {
        std::abort();
    }
}

// Up to 40 decades a fit is the same as over a few, only slow.
bool IsSlow(const std::vector<double>& f)
{
    const auto first = std::find_if(f.begin(), f.end(), [](double x) { return x >= 1e4; });
    return first != f.end() && f.back() / *first > 1e8 && f.back() / *first < 1e42;
}

void CompareWithPlain(const CWidebandDebyeModel& model, bool fitted, const PlainLaminate& laminate)
{
    constexpr int manageableTerms = 9;
    if (model.GetTermCount() > manageableTerms || !fitted)
    {
        return;
    }
    PlainFit plain;
    Require(plain.Prepare(laminate) && plain.Fit());
    // Absurd numbers can end beyond all numbers, on which way is not the same.
    if (!std::isfinite(plain.epsInf))
    {
        return;
    }
    Require(plain.terms.size() == model.GetTerms().size() && plain.epsInf == model.GetEpsInf());
    for (std::size_t k = 0; k < plain.terms.size(); ++k)
    {
        Require(plain.terms[k].deltaEps == model.GetTerms()[k].deltaEps);
    }
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    CBytes bytes(data, size);
    const std::size_t erCount = bytes.TakeCount(12);
    const std::size_t lossCount = bytes.TakeCount(12);
    PlainLaminate laminate;
    laminate.erFrequencies = bytes.TakeDoubles(erCount);
    laminate.erValues = bytes.TakeDoubles(erCount);
    laminate.lossFrequencies = bytes.TakeDoubles(lossCount);
    laminate.lossValues = bytes.TakeDoubles(lossCount);

    if (IsSlow(laminate.lossFrequencies))
    {
        return 0;
    }

    CWidebandDebyeModel model;
    const bool prepared = model.PrepareData(static_cast<std::int32_t>(erCount), laminate.erFrequencies.data(),
                                            laminate.erValues.data(), static_cast<std::int32_t>(lossCount),
                                            laminate.lossFrequencies.data(), laminate.lossValues.data()) == 1;
    Require(model.IsReady() == prepared);
    const bool fitted = prepared && model.Fit() == 1;
    Require(model.IsReady() == fitted);
    double real = 0.0;
    double imaginary = 0.0;
    const double frequency = lossCount > 0 ? laminate.lossFrequencies.front() * 1.5 : 1e9;
    Require((model.Evaluate(frequency, real, imaginary) == 1) == fitted);
    CompareWithPlain(model, fitted, laminate);
    return 0;
}
