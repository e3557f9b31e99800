#include "shared/Misc_String/Decimal.h"

#include <algorithm>
#include <cmath>
#include <fast_float/fast_float.h>

namespace
{
DecimalVerdict Judge(double value, const char* digits, const char* stop)
{
    if (value != 0.0)
    {
        return std::isinf(value) ? DecimalVerdict::Overflow : DecimalVerdict::Ok;
    }
    const char* const exponent = std::find_if(digits, stop, decimal::IsExponentLetter);
    const bool isZero = std::all_of(digits, exponent, [](char c) { return c == '0' || c == '.'; });
    return isZero ? DecimalVerdict::Ok : DecimalVerdict::Underflow;
}
} // namespace

DecimalResult ParseDecimal(const char* first, const char* last) noexcept
{
    const bool hasSign = first != last && decimal::IsSign(*first);
    const char* const digits = first + (hasSign ? 1 : 0);
    // The library reads a number with "-" but none with "+", and infinities and NaNs besides.
    double value = 0.0;
    if (digits == last || (!decimal::IsDigit(*digits) && *digits != '.'))
    {
        return {value, first, DecimalVerdict::None};
    }
    const auto [stop, error] = fast_float::from_chars(digits, last, value);
    if (error == std::errc::invalid_argument)
    {
        return {0.0, first, DecimalVerdict::None};
    }
    return {hasSign && *first == '-' ? -value : value, stop, Judge(value, digits, stop)};
}

UnsignedDecimal decimal::Convert(const char* first, const char* stop, std::uint64_t mantissa,
                                 std::int64_t exponent, std::ptrdiff_t digitCount) noexcept
{
    constexpr std::ptrdiff_t digitsOfMantissa = 19;
    // What the library does with a number once it has scanned it. Only of more digits, or where the number
    // lies too near to the middle between two doubles, does it need the text.
    fast_float::adjusted_mantissa parts;
    parts.power2 = -1;
    if (digitCount <= digitsOfMantissa)
    {
        parts = fast_float::compute_float<fast_float::binary_format<double>>(exponent, mantissa);
    }
    double value = 0.0;
    if (parts.power2 >= 0)
    {
        fast_float::to_float(false, parts, value);
    }
    else
    {
        value = ParseDecimal(first, stop).value;
    }
    return {value, Judge(value, first, stop) == DecimalVerdict::Ok ? stop : nullptr};
}
