#pragma once

#include "MaterialLibrary/MLTypes.h"
#include "dielectric/CModelFitter.h"

#include <array>
#include <optional>
#include <span>
#include <vector>

// An Er row that the model does not go through.
struct MissedRow
{
    std::size_t index = 0;
    double modelled = 0.0;
};

struct FitVerdict
{
    bool hasModel = false;
    bool takesSum = false; // the model's permittivity is the sum of the Er rows
    std::optional<MissedRow> worst;
};

// Judges models by the rows that they were fitted to. Files repeat the same rows for many thicknesses, so
// judgements are kept, each until another takes its place.
class CFitCheck
{
public:
    // How far a model may be from a row, as a part of its value.
    static constexpr double tolerance = 0.02;

    // Of several missed rows the one that is missed most. Both tables have a row at least. What is returned
    // is valid until the next call.
    [[nodiscard]] const FitVerdict& Judge(std::span<const MLTBLENTRY> er, std::span<const MLTBLENTRY> loss);

private:
    struct Judged
    {
        std::size_t hash = 0;       // of the last rows
        std::vector<MLTBLENTRY> er; // empty: there is none yet
        std::vector<MLTBLENTRY> loss;
        FitVerdict verdict;
    };

    CModelFitter fitter;
    // The hash chooses the group. Few of all together, since a file that repeats no rows goes through all.
    std::array<std::array<Judged, 4>, 32> groups;
    std::size_t judgedAnew = 0;
};
