#pragma once

#include "tools/matlib/import/ImportOptions.h"

#include <string>
#include <string_view>

// A number of a cell, in the unit of material files, or why there is none.
struct CellNumber
{
    double value = 0.0;
    const CellUnit* unit = nullptr; // that stands in the cell
    std::string problem;            // a sentence for the user; empty: the value is good
};

// A number with or without a unit behind it. `columnUnit`, if there is one, serves a number without; it must
// not differ from the cell's own. A dimension that needs a unit gets one from either. The value is the double
// nearest to what is written, converted: 0.2 in mm is 0.0002, 4 in mil 0.0001016.
[[nodiscard]] CellNumber ParseCellNumber(std::string_view cell, DecimalSign decimalSign, Dimension dimension,
                                         const CellUnit* columnUnit);

// What people write where there is no value: "-", "n/a" and the like.
[[nodiscard]] bool LooksLikeNoValue(std::string_view cell);
