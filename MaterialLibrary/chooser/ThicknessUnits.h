#pragma once

#include "resources/TextIds.h"

#include <optional>
#include <string>
#include <string_view>

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

// The number that a user has put into an edit box, blanks around it allowed; nothing when it is none.
[[nodiscard]] std::optional<double> ParseThickness(std::string_view text);

// A thickness of that unit in metres.
[[nodiscard]] double ThicknessToMetres(double thickness, unsigned units);
