#pragma once

#include "MaterialLibrary/MLTypes.h"
#include "dielectric/CModelFitter.h"

#include <optional>
#include <span>
#include <string>
#include <unordered_map>
#include <vector>

// A row that the model does not go through.
struct MissedRow
{
    MLTABLEKIND kind = MLTABLE_ER;
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
// the judgements are kept, up to a number.
class CFitCheck
{
public:
    // How far a model may be from a row, as a part of its value.
    static constexpr double tolerance = 0.02;

    // Of several missed rows the one that is missed most.
    [[nodiscard]] const FitVerdict& Judge(std::span<const MLTBLENTRY> er, std::span<const MLTBLENTRY> loss);

private:
    CModelFitter fitter;
    std::unordered_map<std::string, FitVerdict> verdicts; // by the bytes of the rows
    std::string key;                                      // kept for its memory
};
