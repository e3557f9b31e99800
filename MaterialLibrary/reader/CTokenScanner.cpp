#include "reader/CTokenScanner.h"

#include "shared/Misc_String/Decimal.h"

#include <charconv>
#include <cstring>
#include <limits>

namespace
{
bool IsDigit(char character)
{
    return character >= '0' && character <= '9';
}

bool IsSign(char character)
{
    return character == '+' || character == '-';
}
} // namespace

CTokenScanner::CTokenScanner()
{
    Reclassify();
}

void CTokenScanner::Attach(const char* text)
{
    cursor = text;
    textEnd = text + std::strlen(text);
    lineStart = text;
    line = 0;
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
}

// A character of several sets belongs to the one assigned last.
void CTokenScanner::Reclassify()
{
    classes.fill(ordinary);
    const auto assign = [this](const char* set, Class value)
    {
        for (; *set != '\0'; ++set)
        {
            classes[static_cast<unsigned char>(*set)] = value;
        }
    };
    assign(delimiters, delimiter);
    assign(whitespace, blank);
    assign("\r\n", lineBreak);
    assign(commentChars, comment);
    classes[0] = endOfText;
}

bool CTokenScanner::IsQuote(char character) const
{
    return character != '\0' && std::strchr(quoteChars, character) != nullptr;
}

void CTokenScanner::SkipLineBreak()
{
    if (*cursor == '\r')
    {
        ++cursor;
    }
    if (*cursor == '\n')
    {
        ++cursor;
    }
    ++line;
    lineStart = cursor;
}

bool CTokenScanner::NextToken(std::string_view& token)
{
    token = {};
    // What stands before the token.
    for (;;)
    {
        const Class kind = ClassOf(*cursor);
        if (kind == blank)
        {
            ++cursor;
        }
        else if (kind == lineBreak)
        {
            SkipLineBreak();
        }
        else if (kind == comment)
        {
            cursor += std::strcspn(cursor, "\r\n");
        }
        else
        {
            break;
        }
    }
    const char* const start = cursor;
    switch (ClassOf(*cursor))
    {
    case endOfText:
        return false;
    case delimiter:
        ++cursor;
        break;
    default:
        do
        {
            ++cursor;
        } while (ClassOf(*cursor) == ordinary);
        break;
    }
    token = {start, static_cast<std::size_t>(cursor - start)};
    return true;
}

bool CTokenScanner::SkipBlanks()
{
    while (ClassOf(*cursor) == blank)
    {
        ++cursor;
    }
    return *cursor != '\0';
}

bool CTokenScanner::ScanDigits()
{
    const char* const start = cursor;
    if (*cursor == '0')
    {
        ++cursor;
        return !IsDigit(*cursor);
    }
    while (IsDigit(*cursor))
    {
        ++cursor;
    }
    return cursor != start;
}

bool CTokenScanner::ReadInteger(std::uint32_t& value)
{
    if (!SkipBlanks())
    {
        return false;
    }
    const char* const start = cursor;
    if (!ScanDigits())
    {
        return false;
    }
    const auto [stop, error] = std::from_chars(start, cursor, value);
    if (error == std::errc::result_out_of_range)
    {
        value = std::numeric_limits<std::uint32_t>::max();
    }
    return true;
}

bool CTokenScanner::ScanMantissa()
{
    if (IsDigit(*cursor))
    {
        if (!ScanDigits())
        {
            return false;
        }
        if (*cursor == '.')
        {
            ++cursor;
            while (IsDigit(*cursor))
            {
                ++cursor;
            }
        }
        return true;
    }
    if (*cursor != '.')
    {
        return false;
    }
    ++cursor;
    if (!IsDigit(*cursor))
    {
        return false;
    }
    while (IsDigit(*cursor))
    {
        ++cursor;
    }
    return true;
}

bool CTokenScanner::ScanExponent()
{
    if (*cursor != 'E' && *cursor != 'e')
    {
        return true;
    }
    ++cursor;
    if (*cursor == '\0')
    {
        return false;
    }
    if (IsSign(*cursor))
    {
        ++cursor;
        if (!IsDigit(*cursor))
        {
            return false;
        }
    }
    ++cursor; // whatever it is: files in use rely on it
    while (IsDigit(*cursor))
    {
        ++cursor;
    }
    return true;
}

// Nearly every number is one that the scanner's rules and those of decimal conversion end at the same
// place. False, with nothing taken, where they may differ: leading zeros, unfinished exponents, no number.
bool CTokenScanner::TakeOrdinaryNumber(double& value)
{
    const char* const digits = cursor + (IsSign(*cursor) ? 1 : 0);
    const DecimalResult number = ParseDecimal(cursor, textEnd);
    if (number.verdict == DecimalVerdict::None || *number.stop == 'e' || *number.stop == 'E' ||
        (*digits == '0' && IsDigit(digits[1])))
    {
        return false;
    }
    value = number.value;
    cursor += number.stop - cursor;
    return true;
}

bool CTokenScanner::ReadNumber(double& value)
{
    if (!SkipBlanks())
    {
        return false;
    }
    if (TakeOrdinaryNumber(value))
    {
        return true;
    }
    const char* const start = cursor;
    if (IsSign(*cursor))
    {
        ++cursor;
    }
    if (!ScanMantissa() || !ScanExponent())
    {
        return false;
    }
    value = ParseDecimal({start, static_cast<std::size_t>(cursor - start)}).value;
    return true;
}

bool CTokenScanner::ReadQuoted(std::string_view& value)
{
    if (!SkipBlanks() || !IsQuote(*cursor))
    {
        return false;
    }
    ++cursor;
    const std::size_t length = std::strcspn(cursor, quoteChars);
    value = {cursor, length};
    cursor += length + (cursor[length] != '\0' ? 1 : 0);
    return true;
}
