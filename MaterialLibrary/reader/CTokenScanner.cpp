#include "reader/CTokenScanner.h"

#include "shared/Misc_String/Decimal.h"

#include <charconv>
#include <limits>

using decimal::IsDigit;
using decimal::IsSign;

CTokenScanner::CTokenScanner()
{
    Reclassify();
}

void CTokenScanner::Attach(const char* text)
{
    at = {text, text, 0};
}

void CTokenScanner::SetDelimiters(const char* set)
{
    delimiters = set;
    Reclassify();
}

void CTokenScanner::SetWhitespace(const char* set)
{
    whitespace = set;
    Reclassify();
}

void CTokenScanner::SetCommentChars(const char* set)
{
    commentChars = set;
    Reclassify();
}

void CTokenScanner::SetQuoteChars(const char* set)
{
    quoteChars = set;
    Reclassify();
}

// A character of several sets belongs to the one assigned last; a quote character may have another class
// besides.
void CTokenScanner::Reclassify()
{
    classes.fill(ordinary);
    const auto assign = [this](const char* set, Class value, unsigned kept = 0)
    {
        for (; *set != '\0'; ++set)
        {
            std::uint8_t& each = classes[static_cast<unsigned char>(*set)];
            each = static_cast<std::uint8_t>((each & kept) | value);
        }
    };
    assign(delimiters, delimiter);
    assign(whitespace, blank);
    assign("\r\n", lineBreak);
    assign(commentChars, comment);
    assign(quoteChars, quote, ~0U);
    classes[0] = endOfText;
}

void CTokenScanner::SkipLinesAndComments()
{
    const char* p = at.cursor;
    for (;;)
    {
        const unsigned kind = ClassOf(*p);
        if (kind == blank)
        {
            ++p;
        }
        else if (kind == lineBreak)
        {
            p += *p == '\r' && p[1] == '\n' ? 2 : 1;
            at.lineStart = p;
            ++at.line;
        }
        else if (kind == comment)
        {
            p += std::strcspn(p, "\r\n");
        }
        else
        {
            break;
        }
    }
    at.cursor = p;
}

bool CTokenScanner::NextToken(std::string_view& token)
{
    GoToToken();
    const char* const start = at.cursor;
    const char* p = start;
    while (IsOrdinary(*p))
    {
        ++p;
    }
    p += p == start && *p != '\0' ? 1 : 0; // a delimiter
    at.cursor = p;
    token = {start, static_cast<std::size_t>(p - start)};
    return p != start;
}

bool CTokenScanner::SkipBlanks()
{
    while ((ClassOf(*at.cursor) & blank) != 0)
    {
        ++at.cursor;
    }
    return *at.cursor != '\0';
}

bool CTokenScanner::ScanDigits()
{
    const char* const start = at.cursor;
    if (*at.cursor == '0')
    {
        ++at.cursor;
        return !IsDigit(*at.cursor);
    }
    while (IsDigit(*at.cursor))
    {
        ++at.cursor;
    }
    return at.cursor != start;
}

bool CTokenScanner::ReadInteger(std::uint32_t& value)
{
    if (!SkipBlanks())
    {
        return false;
    }
    const char* const start = at.cursor;
    if (!ScanDigits())
    {
        return false;
    }
    const auto [stop, error] = std::from_chars(start, at.cursor, value);
    if (error == std::errc::result_out_of_range)
    {
        value = std::numeric_limits<std::uint32_t>::max();
    }
    return true;
}

bool CTokenScanner::ScanMantissa()
{
    if (IsDigit(*at.cursor))
    {
        if (!ScanDigits())
        {
            return false;
        }
        if (*at.cursor == '.')
        {
            ++at.cursor;
            while (IsDigit(*at.cursor))
            {
                ++at.cursor;
            }
        }
        return true;
    }
    if (*at.cursor != '.')
    {
        return false;
    }
    ++at.cursor;
    if (!IsDigit(*at.cursor))
    {
        return false;
    }
    while (IsDigit(*at.cursor))
    {
        ++at.cursor;
    }
    return true;
}

bool CTokenScanner::ScanExponent()
{
    if (*at.cursor != 'E' && *at.cursor != 'e')
    {
        return true;
    }
    ++at.cursor;
    if (*at.cursor == '\0')
    {
        return false;
    }
    if (IsSign(*at.cursor))
    {
        ++at.cursor;
        if (!IsDigit(*at.cursor))
        {
            return false;
        }
    }
    ++at.cursor; // whatever it is: files in use rely on it
    while (IsDigit(*at.cursor))
    {
        ++at.cursor;
    }
    return true;
}

// Any number, by the scanner's own rules.
bool CTokenScanner::ReadOddNumber(double& value)
{
    const char* const start = at.cursor;
    at.cursor += IsSign(*start) ? 1 : 0;
    if (!ScanMantissa() || !ScanExponent())
    {
        return false;
    }
    value = ParseDecimal(start, at.cursor).value;
    return true;
}

// Nearly every number is one that the scanner's rules and those of decimal conversion end at the same place.
// They may differ after leading zeros and unfinished exponents, and where there is no digit.
bool CTokenScanner::ReadNumber(double& value)
{
    if (!SkipBlanks())
    {
        return false;
    }
    const char* const start = at.cursor;
    const char* const digits = start + (IsSign(*start) ? 1 : 0);
    if (!IsDigit(*digits) || (*digits == '0' && IsDigit(digits[1])))
    {
        return ReadOddNumber(value);
    }
    const UnsignedDecimal number = ParseUnsignedDecimal(digits);
    if (number.stop == nullptr || decimal::IsExponentLetter(*number.stop))
    {
        return ReadOddNumber(value);
    }
    value = *start == '-' ? -number.value : number.value;
    at.cursor = number.stop;
    return true;
}

bool CTokenScanner::ReadQuoted(std::string_view& value)
{
    if (!SkipBlanks() || (ClassOf(*at.cursor) & quote) == 0)
    {
        return false;
    }
    const char* const start = at.cursor + 1;
    const char* p = start;
    while ((ClassOf(*p) & (quote | endOfText)) == 0)
    {
        ++p;
    }
    value = {start, static_cast<std::size_t>(p - start)};
    at.cursor = p + (*p != '\0' ? 1 : 0);
    return true;
}
