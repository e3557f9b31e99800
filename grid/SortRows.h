#pragma once

#include "grid/CGridModel.h"

// Tells which of two texts sorts first: negative the first, positive the second, 0 neither. It need not be
// transitive.
using GridTextComparison = int (*)(const char*, const char*);

// Sorts the rows of a grid by its sort keys, by the texts of their columns. Empty texts come last whatever
// the direction. Rows that are equal by all keys keep no order to rely on. Takes n log n comparisons.
void SortRows(CGridModel& model, GridTextComparison compare);
