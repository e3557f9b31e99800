#include "shared/Misc_String/Decimal.h"

#include <algorithm>
#include <cmath>
#include <fast_float/fast_float.h>

namespace
{
// The library reads infinities and NaNs too, but no number with a "+".
bool BeginsDecimal(const char* digits, const char* last)
{
    return digits != last && ((*digits >= '0' && *digits <= '9') || *digits == '.');
}

DecimalVerdict JudgeZero(const char* digits, const char* stop)
{
    const char* const exponent = std::find_if(digits, stop, [](char c) { return c == 'e' || c == 'E'; });
    const bool isZero = std::all_of(digits, exponent, [](char c) { return c == '0' || c == '.'; });
    return isZero ? DecimalVerdict::Ok : DecimalVerdict::Underflow;
}
} // namespace

DecimalResult ParseDecimal(const char* first, const char* last) noexcept
{
    const bool hasMinus = first != last && *first == '-';
    const bool hasPlus = first != last && *first == '+';
    const char* const digits = first + (hasMinus || hasPlus ? 1 : 0);
    DecimalResult result = {0.0, first, DecimalVerdict::None};
    if (!BeginsDecimal(digits, last))
    {
        return result;
    }
    double value = 0.0;
    const auto [stop, error] = fast_float::from_chars(hasPlus ? digits : first, last, value);
    if (error == std::errc::invalid_argument)
    {
        return result;
    }
    if (value == 0.0)
    {
        return {value, stop, JudgeZero(digits, stop)};
    }
    return {value, stop, std::isinf(value) ? DecimalVerdict::Overflow : DecimalVerdict::Ok};
}
