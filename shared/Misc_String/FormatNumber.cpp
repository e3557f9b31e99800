#include "shared/Misc_String/FormatNumber.h"

#include <charconv>
#include <iterator>

std::string FormatNumber(double value, int digits)
{
    char text[64]; // digits, and at most a sign, a point, four zeros and an exponent of five characters
    const std::to_chars_result end =
        std::to_chars(text, std::end(text), value, std::chars_format::general, digits);
    return std::string(text, end.ptr);
}
