#include "model/CKeptFit.h"

#include <cstring>

namespace
{
// Bit for bit, since rows may hold numbers that differ from themselves.
bool AreSame(std::span<const MLTBLENTRY> some, std::span<const MLTBLENTRY> others)
{
    return some.size() == others.size() && std::memcmp(some.data(), others.data(), some.size_bytes()) == 0;
}
} // namespace

const CWidebandDebyeModel* CKeptFit::Fit(std::span<const MLTBLENTRY> er, std::span<const MLTBLENTRY> loss)
{
    if (!AreSame(loss, lossRows) || !AreSame(er, erRows))
    {
        lossRows.clear(); // until all is there again
        model = fitter.Fit(PrepareData(er, loss));
        erRows.assign(er.begin(), er.end());
        lossRows.assign(loss.begin(), loss.end());
    }
    return model ? &*model : nullptr;
}
