#pragma once
// Laminates as a data sheet would state them, made up from a number. Only whole-number arithmetic and
// division are used, so that a seed gives the same doubles with every compiler and every mathematics library.

#include "MaterialLibrary/MLTypes.h"

#include <cstdint>
#include <vector>

struct Laminate
{
    std::vector<MLTBLENTRY> er, loss;
};

// The laminate of that seed with `lossPoints` rows of loss tangent (0: between 2 and 40, by the seed).
[[nodiscard]] Laminate MakeLaminate(std::uint64_t seed, int lossPoints = 0);
