#pragma once

#include <array>
#include <compare>
#include <cstdint>
#include <cstring>
#include <string_view>

// Where something stands in a text, both counted from 1.
struct Place
{
    unsigned line = 1;
    unsigned column = 1;

    friend auto operator<=>(const Place&, const Place&) = default;
};

// Where a scanner is in its text.
struct TextPlace
{
    const char* cursor = nullptr;
    const char* lineStart = nullptr;
    std::uint32_t line = 0; // line breaks passed; those inside quotes do not count
};

// So many bytes behind a text's NUL must be readable, so that words can be compared as a whole; what they
// hold does not matter.
inline constexpr std::size_t textPadding = 16;

// Whether the padded text at `p` begins with `word`, at most textPadding characters: compared at once where
// the compiler knows the word.
[[nodiscard]] inline bool StartsWith(const char* p, std::string_view word)
{
    return std::memcmp(p, word.data(), word.size()) == 0;
}

// Cuts a text that ends with NUL and is padded into tokens. The text must stay as it is while the scanner or
// a token is in use.
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

    // Goes to the next token, or to the text's end. Its first character, NUL at the end.
    char GoToToken()
    {
        if ((ClassOf(*at.cursor) & beforeToken) != 0)
        {
            at.cursor += ClassOf(*at.cursor) == blank ? 1 : 0; // nearly always all there is
            if ((ClassOf(*at.cursor) & beforeToken) != 0)
            {
                SkipLinesAndComments();
            }
        }
        return *at.cursor;
    }

    // Take the token that the scanner has gone to, if it is this delimiter or this word; otherwise false.
    // Quicker than to compare what NextToken gives, the more so with a word that the compiler knows.
    [[nodiscard]] bool TakeDelimiter(char expected, std::string_view& token)
    {
        if (*at.cursor != expected)
        {
            return false;
        }
        token = {at.cursor++, 1};
        return true;
    }
    [[nodiscard]] bool TakeWord(std::string_view word, std::string_view& token)
    {
        if (!StartsWith(at.cursor, word) || IsOrdinary(at.cursor[word.size()]))
        {
            return false;
        }
        token = {at.cursor, word.size()};
        at.cursor += word.size();
        return true;
    }

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
    void GoBackTo(std::string_view token) { at.cursor = token.data(); }

    // Where the next operation goes on.
    [[nodiscard]] TextPlace& GetPlace() { return at; }

    // Line breaks passed, 0 on the first line. Those inside quotes do not count.
    [[nodiscard]] std::uint32_t GetLine() const { return at.line; }

    // Characters consumed since the start of the line.
    [[nodiscard]] std::uint32_t GetColumn() const
    {
        return static_cast<std::uint32_t>(at.cursor - at.lineStart);
    }

private:
    enum Class : std::uint8_t
    {
        ordinary = 0,
        delimiter = 1,
        endOfText = 2,
        blank = 4,
        lineBreak = 8,
        comment = 16,
        beforeToken = blank | lineBreak | comment,
        quote = 32 // ordinary besides
    };

    [[nodiscard]] unsigned ClassOf(char character) const
    {
        return classes[static_cast<unsigned char>(character)];
    }
    [[nodiscard]] bool IsOrdinary(char character) const
    {
        return (ClassOf(character) & ~unsigned{quote}) == ordinary;
    }
    void Reclassify();
    [[nodiscard]] bool SkipBlanks();

    void SkipLinesAndComments();
    [[nodiscard]] bool ReadOddNumber(double& value);
    [[nodiscard]] bool ScanDigits();
    [[nodiscard]] bool ScanMantissa();
    [[nodiscard]] bool ScanExponent();

    const char* delimiters = "{}()=,.";
    const char* whitespace = " \t";
    const char* commentChars = "*";
    const char* quoteChars = "\"";
    TextPlace at;
    std::array<std::uint8_t, 256> classes{}; // of each character
};
