#pragma once

#include <string>

// The number as the format "%.<digits>g" writes it, in every locale with a point and on every system with an
// exponent of at least two digits. At most 40 digits.
[[nodiscard]] std::string FormatNumber(double value, int digits);
