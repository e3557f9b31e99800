#pragma once

#include <array>
#include <compare>
#include <cstdint>
#include <string_view>

// Where something stands in a text, both counted from 1.
struct Place
{
    unsigned line = 1;
    unsigned column = 1;

    friend auto operator<=>(const Place&, const Place&) = default;
};

// Cuts a NUL-terminated text into tokens. The text must stay as it is while the scanner or a token is in use.
// No operation reads past the text's NUL.
class CTokenScanner
{
public:
    CTokenScanner();

    // Puts the scanner at the start of `text`.
    void Attach(const char* text);

    // The sets of characters that the scanner goes by; each must stay valid while it is in use.
    void SetDelimiters(const char* set);   // each is a token by itself; at first "{}()=,."
    void SetWhitespace(const char* set);   // separate tokens; at first blank and tab
    void SetCommentChars(const char* set); // start a comment up to the end of the line; at first "*"
    void SetQuoteChars(const char* set);   // open and close a quoted text; at first the double quote

    // The next token; false at the end of the text. Comments and line breaks (CR, LF, CR LF) separate
    // tokens like blanks.
    [[nodiscard]] bool NextToken(std::string_view& token);

    // The three operations below skip blanks, but no line break: what they read stands on the line of what
    // is before it. On failure the scanner stays where it could not go on.

    // An unsigned decimal number without leading zeros; 4294967295 stands for all greater ones.
    [[nodiscard]] bool ReadInteger(std::uint32_t& value);

    // A decimal number: sign, digits without leading zeros, fraction, exponent. Greater than the greatest
    // double gives infinity. The character after an exponent letter is taken unseen; where it is no digit,
    // the number ends before the letter but reading goes on behind it.
    [[nodiscard]] bool ReadNumber(double& value);

    // A text in quotes, without escapes, possibly over several lines. The end of the text closes it too.
    [[nodiscard]] bool ReadQuoted(std::string_view& value);

    // Has NextToken give the token, the last that it gave, once more.
    void GoBackTo(std::string_view token) { cursor = token.data(); }

    // Line breaks passed, 0 on the first line. Those inside quotes do not count.
    [[nodiscard]] std::uint32_t GetLine() const { return line; }

    // Characters consumed since the start of the line.
    [[nodiscard]] std::uint32_t GetColumn() const { return static_cast<std::uint32_t>(cursor - lineStart); }

    // Where the last token begins.
    [[nodiscard]] Place GetPlaceOf(std::string_view token) const
    {
        return {line + 1, static_cast<unsigned>(token.data() - lineStart) + 1};
    }

private:
    enum Class : std::uint8_t
    {
        ordinary,
        delimiter,
        blank,
        lineBreak,
        comment,
        endOfText
    };

    [[nodiscard]] Class ClassOf(char character) const
    {
        return classes[static_cast<unsigned char>(character)];
    }
    [[nodiscard]] bool IsQuote(char character) const;
    void Reclassify();
    [[nodiscard]] bool SkipBlanks();
    void SkipLineBreak();
    [[nodiscard]] bool TakeOrdinaryNumber(double& value);
    [[nodiscard]] bool ScanDigits();
    [[nodiscard]] bool ScanMantissa();
    [[nodiscard]] bool ScanExponent();

    const char* delimiters = "{}()=,.";
    const char* whitespace = " \t";
    const char* commentChars = "*";
    const char* quoteChars = "\"";
    const char* cursor = nullptr;
    const char* textEnd = nullptr;
    const char* lineStart = nullptr;
    std::uint32_t line = 0;
    std::array<Class, 256> classes{};
};
