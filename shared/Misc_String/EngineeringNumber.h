#pragma once

#include <string_view>

// Reads a number with an engineering suffix, such as 2.5GHz, 10k or 5 m, and stores its value in `out`.
// Returns false, with 0.0 in `out`, when the text holds no number or one that no double can hold.
//
// - Only the first 328 bytes count. Blanks, control characters and every character from byte 128 up are
//   passed over wherever they stand, so "1 GHz" reads as "1GHz" and "1 2" as 12.
// - The number begins at the first of the characters 0 to 9, "-", "+" and "."; what precedes it is ignored.
// - The one character after the number scales: T 1e12, G 1e9, M 1e6, K and k 1e3, m 1e-3, U and u 1e-6,
//   N and n 1e-9, P and p 1e-12, F and f 1e-15. Every other character means 1: g and t do not scale, and m
//   is milli, so "1000mhz" is 1.0. The scaled value may overflow to infinity.
//
// A null text ends the process through FatalError.
[[nodiscard]] bool ParseEngineeringNumber(const char* text, double* out);

// The same for a text of known length, which may be empty; a NUL in it is a control character.
[[nodiscard]] bool ParseEngineeringNumber(std::string_view text, double* out);

// What a number is multiplied by that this character follows.
[[nodiscard]] constexpr double ScaleOfSuffix(char suffix)
{
    switch (suffix)
    {
    case 'T':
        return 1e12;
    case 'G':
        return 1e9;
    case 'M':
        return 1e6;
    case 'K':
    case 'k':
        return 1e3;
    case 'm':
        return 1e-3;
    case 'U':
    case 'u':
        return 1e-6;
    case 'N':
    case 'n':
        return 1e-9;
    case 'P':
    case 'p':
        return 1e-12;
    case 'F':
    case 'f':
        return 1e-15;
    default:
        return 1.0;
    }
}
