#include "dielectric/CModelFitter.h"

#include <algorithm>

namespace
{
constexpr std::size_t mostBases = 4;

auto HasFrequencies(std::span<const double> frequencies)
{
    return [frequencies](const CDebyeBasis& basis)
    { return std::ranges::equal(basis.GetFrequencies(), frequencies); };
}
} // namespace

std::optional<CWidebandDebyeModel> CModelFitter::Fit(const PreparedData& data)
{
    if (data.frequencies.size() > CDecompositions::longestKept)
    {
        return CWidebandDebyeModel::Fit(data);
    }
    CDebyeBasis* const basis = ProvideBasis(data.frequencies);
    return basis != nullptr ? CWidebandDebyeModel::Fit(data, *basis) : std::nullopt;
}

const CDebyeBasis* CModelFitter::FindBasis(std::span<const double> frequencies) const
{
    const auto found = std::ranges::find_if(bases, HasFrequencies(frequencies));
    return found != bases.end() ? &*found : nullptr;
}

CDebyeBasis* CModelFitter::ProvideBasis(std::span<const double> frequencies)
{
    auto found = std::ranges::find_if(bases, HasFrequencies(frequencies));
    if (found == bases.end())
    {
        std::optional<CDebyeBasis> made = CDebyeBasis::Make(frequencies);
        if (!made)
        {
            return nullptr;
        }
        if (bases.size() == mostBases)
        {
            bases.pop_back();
        }
        bases.push_back(std::move(*made));
        found = bases.end() - 1;
    }
    std::rotate(bases.begin(), found, found + 1);
    return &bases.front();
}
