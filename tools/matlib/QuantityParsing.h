#pragma once

#include "tools/matlib/Options.h"

#include <string>
#include <string_view>
#include <vector>

// Quantities as users type them on the command line. Material files are more lenient: there "2.5ghz" is
// 2.5 Hz and "5m" is 5 mHz, which nobody who types them means.

// A number read from text, or why the text was refused.
struct Quantity
{
    double value = 0.0;
    std::string problem; // a sentence for the user; empty: the value is good
};

// A frequency above 0 in Hz: a number, then nothing, Hz, or k, M, G, T with or without Hz. The letter case
// counts; where it is wrong the problem names the likely meaning.
[[nodiscard]] Quantity ParseFrequency(std::string_view text);

// A temperature in °C, not below absolute zero: a number, with or without C.
[[nodiscard]] Quantity ParseTemperature(std::string_view text);

// A length in m, not below 0: a number and um, mm, cm, m, mil or in.
[[nodiscard]] Quantity ParseLength(std::string_view text);

// Two lengths with ".." between them, each of which may be missing; `problem` as in a Quantity.
struct ParsedLengths
{
    LengthRange range;
    std::string problem;
};
[[nodiscard]] ParsedLengths ParseLengthRange(std::string_view text);

// A whole number from `least` to `most`.
[[nodiscard]] Quantity ParseWholeNumber(std::string_view text, int least, int most);

// The non-empty pieces of lists that are separated by ";".
[[nodiscard]] std::vector<std::string> SplitPaths(const std::vector<std::string>& lists);
