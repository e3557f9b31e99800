#include "shared/Misc_String/Decimal.h"
#include "shared/Misc_String/EngineeringNumber.h"

#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

namespace
{
void Require(bool holds)
{
    if (!holds)
    {
        std::abort();
    }
}

std::size_t CountDigits(std::string_view text)
{
    return std::min(text.find_first_not_of("0123456789"), text.size());
}

// How much of `text` is a decimal number, spelled out plainly.
std::size_t NumberLength(std::string_view text)
{
    std::size_t length = text.starts_with('+') || text.starts_with('-') ? 1 : 0;
    const std::size_t before = CountDigits(text.substr(length));
    length += before;
    std::size_t behind = 0;
    if (text.substr(length).starts_with('.'))
    {
        behind = CountDigits(text.substr(length + 1));
        length += 1 + behind;
    }
    if (before + behind == 0)
    {
        return 0;
    }
    std::string_view exponent = text.substr(length);
    if (exponent.starts_with('e') || exponent.starts_with('E'))
    {
        exponent.remove_prefix(1);
        if (exponent.starts_with('+') || exponent.starts_with('-'))
        {
            exponent.remove_prefix(1);
        }
        if (const std::size_t digits = CountDigits(exponent); digits > 0)
        {
            length = static_cast<std::size_t>(exponent.data() - text.data()) + digits;
        }
    }
    return length;
}

// Bit for bit what the C library reads, whose locale here is "C".
void CheckDecimal(std::string_view text)
{
    const DecimalResult result = ParseDecimal(text);
    const std::size_t length = NumberLength(text);
    Require(result.stop == text.data() + length);
    Require((result.verdict == DecimalVerdict::None) == (length == 0));
    const std::string number(text.substr(0, length));
    const double expected = length > 0 ? std::strtod(number.c_str(), nullptr) : 0.0;
    Require(std::bit_cast<std::uint64_t>(result.value) == std::bit_cast<std::uint64_t>(expected));
    Require((result.verdict == DecimalVerdict::Overflow) == std::isinf(expected));
    const bool isZero =
        number.substr(0, number.find_first_of("eE")).find_first_of("123456789") == std::string::npos;
    Require((result.verdict == DecimalVerdict::Underflow) == (expected == 0.0 && !isZero));
}

// The text as it stands, and without what is passed over, which must not matter within the limit.
void CheckEngineeringNumber(const std::string& text)
{
    double value = -1.0;
    const bool isNumber = ParseEngineeringNumber(text.c_str(), &value);
    Require(isNumber || value == 0.0);
    double fromView = -1.0;
    Require(ParseEngineeringNumber(std::string_view(text.c_str()), &fromView) == isNumber);
    Require(std::bit_cast<std::uint64_t>(fromView) == std::bit_cast<std::uint64_t>(value));

    std::string kept = std::string(text.c_str()).substr(0, 328);
    std::erase_if(kept, [](char c) { return static_cast<signed char>(c) < 33; });
    double fromKept = -1.0;
    Require(ParseEngineeringNumber(kept.c_str(), &fromKept) == isNumber);
    Require(std::bit_cast<std::uint64_t>(fromKept) == std::bit_cast<std::uint64_t>(value));
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    CheckDecimal(text);
    CheckDecimal(text.substr(0, text.size() / 2));
    CheckEngineeringNumber(std::string(text));
    return 0;
}
