// Tables of any doubles: the fit must come to an end without undefined behaviour, and where it is small
// enough to be done the plain way as well, both must agree bit for bit, and so must a fitter that has met the
// same frequencies before. That takes long: of many inputs every tenth is compared, of few each.

#include "dielectric/CModelFitter.h"
#include "fuzz/plain_fit/PlainFit.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <vector>

namespace
{
// Two bytes with the counts of points, then the doubles of both tables one column after the other. Where the
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

    std::vector<MLTBLENTRY> TakeRows(std::size_t wanted)
    {
        std::vector<MLTBLENTRY> rows(wanted);
        for (MLTBLENTRY& row : rows)
        {
            row.frequency = TakeDouble();
        }
        for (MLTBLENTRY& row : rows)
        {
            row.value = TakeDouble();
        }
        return rows;
    }

private:
    double TakeDouble()
    {
        double number = 0.0;
        const std::size_t taken = std::min(count, sizeof number);
        if (taken > 0)
        {
            std::memcpy(&number, bytes, taken);
        }
        bytes += taken;
        count -= taken;
        return number;
    }

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
bool IsSlow(const std::vector<MLTBLENTRY>& loss)
{
    const auto first =
        std::find_if(loss.begin(), loss.end(), [](const MLTBLENTRY& row) { return row.frequency >= 1e4; });
    const double span = first != loss.end() ? loss.back().frequency / first->frequency : 0.0;
    return span > 1e8 && span < 1e42;
}

bool IsCompared(const CWidebandDebyeModel& model)
{
    static std::uint64_t fits = 0;
    constexpr std::size_t manageableTerms = 9;
    return model.GetTerms().size() <= manageableTerms && (++fits <= 100 || fits % 10 == 0);
}

void CompareWithPlain(const CWidebandDebyeModel& model, const std::vector<MLTBLENTRY>& er,
                      const std::vector<MLTBLENTRY>& loss)
{
    PlainFit plain;
    Require(plain.Prepare(er, loss) && plain.Fit());
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

void CompareWithKept(const CWidebandDebyeModel& model, const PreparedData& data)
{
    PreparedData others = data; // lead to other columns
    std::ranges::reverse(others.imaginaryParts);
    CModelFitter fitter;
    (void)fitter.Fit(others);
    const auto again = fitter.Fit(data);
    Require(again.has_value() && (*again == model || !std::isfinite(model.GetEpsInf())));
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    CBytes bytes(data, size);
    const std::size_t erCount = bytes.TakeCount(12);
    const std::size_t lossCount = bytes.TakeCount(12);
    const std::vector<MLTBLENTRY> er = bytes.TakeRows(erCount);
    const std::vector<MLTBLENTRY> loss = bytes.TakeRows(lossCount);
    if (IsSlow(loss))
    {
        return 0;
    }

    const PreparedData prepared = PrepareData(er, loss);
    Require(prepared.frequencies.size() == prepared.realParts.size() &&
            prepared.frequencies.size() == prepared.imaginaryParts.size());
    if (const auto model = CWidebandDebyeModel::Fit(prepared))
    {
        Require(model->GetLowestFrequency() <= model->GetHighestFrequency());
        (void)model->Evaluate(loss.front().frequency * 1.5);
        if (IsCompared(*model))
        {
            CompareWithPlain(*model, er, loss);
            CompareWithKept(*model, prepared);
        }
    }
    return 0;
}
