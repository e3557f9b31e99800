#pragma once

#include <cstdint>

// How many steps cover a linear range, from the tick at or below `lo` to the tick at or above `hi`.
struct IntervalCount
{
    std::int32_t count = 0; // 2147483647 where there are more, or where the range is not finite
    double span = 0.0;      // from the first to the last tick
};

[[nodiscard]] IntervalCount CountIntervals(double lo, double hi, double step);

// The step, of 1, 2, 2.5 or 5 times a power of ten, whose ticks reach least beyond [lo, hi] with at least 20
// pixels and at most half the length per interval; the finer one of two equally good steps.
// std::invalid_argument where there is none: lo not below hi, or not finite.
[[nodiscard]] double ChooseLinearStep(double lo, double hi, int pixels);

// Decades from one tick to the next so that at least 20 pixels lie between, for 0 < lo < hi.
[[nodiscard]] double ChooseDecadeStride(double lo, double hi, int pixels);

// The finest of 0.1, 0.2, 0.25 and 0.5 for which the minor ticks, which stand at the multiples of ten times
// it within a decade, keep 10 pixels of distance at the decade's end; 0 for no minor ticks.
[[nodiscard]] double ChooseMinorDecadeStep(double pixelsPerDecade);

// Into how many parts to divide what is `intervalLength` long, when parts of 1 are the smallest allowed and
// `budget` is the room for all of it: at most 10, and on a linear axis a number that goes well with the
// step's digits, so that multiples of it are round numbers. Used both ways: every so manyth tick has a
// label, and an interval has so many minor ticks.
[[nodiscard]] int CountSubdivisions(double step, int intervalLength, int budget, bool logarithmic);
