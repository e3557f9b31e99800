#pragma once

#include "resources/TextIds.h"

#include <string>

// In which unit thicknesses are shown; the core knows metres only.
enum MLUNITS : unsigned
{
    MLUNITS_ENGLISH = 0,
    MLUNITS_METRIC = 1
};

struct ThicknessUnit
{
    MLUNITS units;
    MLTEXTID unitText; // "mils"
    MLTEXTID name;     // "English"
    double factor;     // from metres
};

inline constexpr ThicknessUnit thicknessUnits[] = {
    {MLUNITS_ENGLISH, MLTEXT_MILS, MLTEXT_ENGLISH, 39370.078740157485},
    {MLUNITS_METRIC, MLTEXT_MICROMETRES, MLTEXT_METRIC, 1000000.0},
};

// Any value but MLUNITS_METRIC means English.
[[nodiscard]] const ThicknessUnit& GetThicknessUnit(unsigned units);

// A thickness in metres in the unit, rounded to 0.0001 of it.
[[nodiscard]] double ThicknessFromMetres(double metres, unsigned units);

// What stands in cells and edit boxes for ThicknessFromMetres.
[[nodiscard]] std::string FormatThickness(double metres, unsigned units);

// A thickness of that unit in metres.
[[nodiscard]] double ThicknessToMetres(double thickness, unsigned units);
