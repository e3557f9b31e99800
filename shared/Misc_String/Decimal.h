#pragma once

#include <string_view>

enum class DecimalVerdict
{
    None, // the text does not begin with a decimal number
    Ok,
    Overflow, // the number is beyond the largest double
    Underflow // the number is not zero but nearer to zero than to the smallest double
};

struct DecimalResult
{
    double value = 0.0;         // infinite after Overflow, zero after Underflow and None, with the sign
    const char* stop = nullptr; // behind the last character of the number; the beginning after None
    DecimalVerdict verdict = DecimalVerdict::None;
};

// Reads the decimal number at the beginning of [first, last): a sign or none, digits with or without a
// point among them, at either end too, and an exponent (e or E, a sign or none, digits) if it is complete.
// No blanks before it; no hexadecimal, infinity or NaN. The value is the double nearest to the number, of
// two equally near ones the even one, in every locale; it takes the default rounding mode. Denormal numbers
// are Ok. Nothing is thrown or allocated.
//
// `last` may lie far behind the number. It is faster so: with eight readable characters from every digit on
// no care is needed to stay within the text.
[[nodiscard]] DecimalResult ParseDecimal(const char* first, const char* last) noexcept;

[[nodiscard]] inline DecimalResult ParseDecimal(std::string_view text) noexcept
{
    return ParseDecimal(text.data(), text.data() + text.size());
}
