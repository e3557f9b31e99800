#pragma once

#include "MaterialLibrary/MLTypes.h"

#include <span>
#include <string>
#include <vector>

// One property at one temperature: the frequencies at which it was measured, ascending.
struct MeasuredTable
{
    MLTABLEKIND kind = MLTABLE_ER;
    bool isConstant = false; // no frequency was given
    std::vector<double> frequencies;
};

// Lines that say what the values of a material at one temperature rest on and what the library makes of them
// where nothing was measured. `tables` are those of that temperature, which the first line begins with where
// it is given.
[[nodiscard]] std::vector<std::string> DescribeBasis(std::span<const MeasuredTable> tables,
                                                     const std::string& temperature);
