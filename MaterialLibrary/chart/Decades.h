#pragma once

// 10 to the power of the exponent; exact for whole exponents to 22 and correctly rounded down to -22,
// whatever the C library.
[[nodiscard]] double RaiseTen(double exponent);

// value * 10^decades. A negative number of decades divides, so that 1e3 less three decades is 1.
[[nodiscard]] double ScaleByDecades(double value, double decades);
