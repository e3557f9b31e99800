#pragma once

#include "MaterialLibrary/MLTypes.h"

#include <span>
#include <string_view>
#include <vector>

// The measured permittivity as the fit takes it: real and imaginary parts at the frequencies (Hz) of the loss
// tangent. All empty where the tables were refused.
struct PreparedData
{
    std::vector<double> frequencies;
    std::vector<double> realParts;
    std::vector<double> imaginaryParts;
    std::string_view errorText; // Why the tables were refused; empty too where there was too little of them.
};

// Turns the rows of an Er table and of a loss tangent table, both in ascending order of frequency, into
// permittivities. Er becomes a straight line over ln f; of the loss tangents those from 10 kHz up are used.
//
// Refused are: no Er row, fewer than two loss rows; of several Er rows one whose frequency or value is not
// above 0; fewer than two loss rows from 10 kHz up.
[[nodiscard]] PreparedData PrepareData(std::span<const MLTBLENTRY> er, std::span<const MLTBLENTRY> loss);
