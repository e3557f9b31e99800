#pragma once

#include "dielectric/CModelFitter.h"

// The model fitted last, kept for as long as it is asked for with the same rows: whoever sweeps a material's
// frequencies fits it once. It holds one model, the rows of one pair of tables and what the fitter keeps,
// however many materials there are.
class CKeptFit
{
public:
    // The model of these rows of Er and of loss tangent, of either at least one; null where there is none.
    // Valid until the next call. Throws std::bad_alloc.
    [[nodiscard]] const CWidebandDebyeModel* Fit(std::span<const MLTBLENTRY> er,
                                                 std::span<const MLTBLENTRY> loss);

    // Gives the memory back.
    void Forget() noexcept { *this = {}; }

private:
    std::vector<MLTBLENTRY> erRows;
    std::vector<MLTBLENTRY> lossRows; // none: nothing is kept
    CModelFitter fitter;
    std::optional<CWidebandDebyeModel> model;
};
