#pragma once

#include "dielectric/CWidebandDebyeModel.h"

// Fits models and keeps the bases of the frequencies met last. Laminates that were measured at the same
// frequencies share theirs, so that most of the work is done once for all of them.
class CModelFitter
{
public:
    // What CWidebandDebyeModel::Fit gives, bit for bit. Throws std::bad_alloc.
    [[nodiscard]] std::optional<CWidebandDebyeModel> Fit(const PreparedData& data);

    // The basis of frequencies, null where it is not kept. Valid until the next fit.
    [[nodiscard]] const CDebyeBasis* FindBasis(std::span<const double> frequencies) const;

private:
    CDebyeBasis* ProvideBasis(std::span<const double> frequencies);

    std::vector<CDebyeBasis> bases; // the one asked for last comes first
};
