// Most of a file is rows, so they have a loop of their own. It goes over their characters once, where the
// general way cuts out a token, looks for a number in it, and then reads another; it keeps its place in
// registers, and hands rows to the table by the dozen.
//
// It takes a row only if it is written like "1.5GHz 4.3": a number right at the beginning of its token, a
// suffix or none, a unit or none, blanks, a number. Everything else stands as it is for the reader, which
// knows the whole grammar: a row that this loop leaves costs time and nothing else.
#include "reader/ReadPlainRows.h"

#include "model/CMaterialTable.h"
#include "reader/IReadObserver.h"
#include "shared/Misc_String/Decimal.h"
#include "shared/Misc_String/EngineeringNumber.h"

#include <array>
#include <string_view>

namespace
{
// The characters that end a frequency's token.
constexpr auto endsToken = []
{
    std::array<bool, 256> table{};
    for (const char c : std::string_view("{}()=* \t\r\n\0", 11))
    {
        table[static_cast<unsigned char>(c)] = true;
    }
    return table;
}();

bool EndsToken(char c)
{
    return endsToken[static_cast<unsigned char>(c)];
}

const char* SkipBlanks(const char* p)
{
    while (*p == ' ' || *p == '\t')
    {
        ++p;
    }
    return p;
}

void SkipBlanksAndLineBreaks(TextPlace& place)
{
    for (;;)
    {
        const char* p = SkipBlanks(place.cursor);
        place.cursor = p;
        if (*p != '\n' && *p != '\r')
        {
            return;
        }
        p += *p == '\r' && p[1] == '\n' ? 2 : 1;
        place.cursor = p;
        place.lineStart = p;
        ++place.line;
    }
}

// Behind the frequency and its unit; null when it is not plain.
const char* TakeFrequency(const char* p, double& frequency)
{
    constexpr std::ptrdiff_t longest = 300; // of a longer token only the beginning counts
    if (!decimal::IsDigit(*p))
    {
        return nullptr;
    }
    const auto [value, stop] = ParseUnsignedDecimal(p);
    if (stop == nullptr || stop - p > longest)
    {
        return nullptr;
    }
    if (EndsToken(*stop))
    {
        frequency = value;
        return stop;
    }
    // Control characters and those above ASCII are passed over, and more of the number may follow; as it may
    // behind an exponent's letter.
    if (static_cast<signed char>(*stop) <= ' ' || decimal::IsExponentLetter(*stop))
    {
        return nullptr;
    }
    frequency = value * ScaleOfSuffix(*stop);
    const char* end = stop + 1;
    while (!EndsToken(*end))
    {
        ++end;
    }
    return end;
}

// Where the number of a value begins; null when it is not plain.
const char* FindValue(const char* p)
{
    p = SkipBlanks(p);
    const bool hasLeadingZero = *p == '0' && decimal::IsDigit(p[1]);
    return decimal::IsDigit(*p) && !hasLeadingZero ? p : nullptr;
}

// Behind the value; null when it is not plain.
const char* TakeValue(const char* p, double& value)
{
    const UnsignedDecimal number = ParseUnsignedDecimal(p);
    if (number.stop == nullptr || decimal::IsExponentLetter(*number.stop))
    {
        return nullptr;
    }
    value = number.value;
    return number.stop;
}

std::string_view Between(const char* begin, const char* end)
{
    return {begin, static_cast<std::size_t>(end - begin)};
}

// Without an observer none is asked for in each row.
template <bool isObserved>
void ReadRows(TextPlace& place, CMaterialTable& table, [[maybe_unused]] IReadObserver* observer)
{
    std::array<MLTBLENTRY, 64> rows;
    std::size_t count = 0;
    TextPlace at = place;
    for (;;)
    {
        SkipBlanksAndLineBreaks(at);
        MLTBLENTRY& row = rows[count];
        const char* const behindFrequency = TakeFrequency(at.cursor, row.frequency);
        const char* const value = behindFrequency != nullptr ? FindValue(behindFrequency) : nullptr;
        const char* const behindRow = value != nullptr ? TakeValue(value, row.value) : nullptr;
        if (behindRow == nullptr)
        {
            break;
        }
        if constexpr (isObserved)
        {
            const std::string_view frequency = Between(at.cursor, behindFrequency);
            observer->OnPiece(frequency);
            observer->OnRow(frequency);
            observer->OnPiece(Between(value, behindRow));
        }
        at.cursor = behindRow;
        if (++count == rows.size())
        {
            table.AddEntries(rows);
            count = 0;
        }
    }
    table.AddEntries(std::span(rows).first(count));
    place = at;
}
} // namespace

void ReadPlainRows(TextPlace& place, CMaterialTable& table, IReadObserver* observer)
{
    if (observer == nullptr)
    {
        ReadRows<false>(place, table, nullptr);
    }
    else
    {
        ReadRows<true>(place, table, observer);
    }
}
