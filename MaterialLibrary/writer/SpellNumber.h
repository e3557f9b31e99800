#pragma once

#include <string>

// The shortest spelling that a file's reader takes for exactly this number: "4.2", "2e-4", "1e999" for
// infinity. Not for NaN, which no file can hold.
[[nodiscard]] std::string SpellNumber(double value);

// The same for a frequency in Hz, with the unit that people use where that loads to the same number:
// "2.45GHz", "100MHz", "1Hz".
[[nodiscard]] std::string SpellFrequency(double frequency);
