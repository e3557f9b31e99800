#pragma once

#include "MaterialLibrary/MLTypes.h"
#include "chart/CChartModel.h"

#include <array>
#include <cstddef>

class IMaterial;

// The curve that shows one property of a material.
struct MaterialCurveDef
{
    MLTABLEKIND tableKind;
    std::string title; // in the user's language where it is translated
    Colour colour;
};

// Er, loss tangent, and the roughness factors of the top and the bottom face.
inline constexpr std::size_t materialCurveCount = 4;

using MaterialCurves = std::array<CChartCurve, materialCurveCount>;

// Translated once, at the first call.
[[nodiscard]] const std::array<MaterialCurveDef, materialCurveCount>& GetMaterialCurveDefs();

// Makes the curves over MHz of the material's tables for that temperature in °C, in the order of the
// definitions. A table with fewer than two rows gives an empty curve, no material gives four of them.
void BuildMaterialCurves(MaterialCurves& curves, IMaterial* material, double temperature);
