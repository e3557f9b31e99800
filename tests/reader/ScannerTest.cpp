#include "reader/CTokenScanner.h"

#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <vector>

namespace
{
// A scanner over a text of its own.
struct Scan
{
    explicit Scan(std::string content) : text(std::move(content)) { scanner.Attach(text.data()); }

    [[nodiscard]] std::string Next()
    {
        std::string_view token;
        return scanner.NextToken(token) ? std::string(token) : std::string("<end>");
    }

    std::string text;
    CTokenScanner scanner;
};

TEST(NextToken, CutsAtBlanksBreaksCommentsAndDelimiters)
{
    struct Row
    {
        const char* text;
        std::vector<std::string> tokens;
    };
    const Row rows[] = {
        {"", {}},
        {" \t\r\n* only a comment", {}},
        {"*\n*\r\n \r", {}},
        {"{MAT_FILE}", {"{", "MAT_FILE", "}"}},
        {"NAME=", {"NAME", "="}},
        {"word*comment ) (\nnext", {"word", "next"}},
        {"word\rnext\nlast", {"word", "next", "last"}},
        {"= *x\r\n=", {"=", "="}},
        {"\"two words\"", {"\"two", "words\""}},
        {"1.5,2", {"1", ".", "5", ",", "2"}},
        {"\xE9t\xE9 \x01", {"\xE9t\xE9", "\x01"}},
    };
    for (const Row& row : rows)
    {
        Scan scan(row.text);
        for (const std::string& token : row.tokens)
        {
            EXPECT_EQ(scan.Next(), token) << row.text;
        }
        EXPECT_EQ(scan.Next(), "<end>") << row.text;
        EXPECT_EQ(scan.Next(), "<end>") << row.text;
    }
}

TEST(NextToken, CountsLinesAndColumns)
{
    Scan scan("ab c\r\n* note\r\r\n  de=\n f \"1\n2\" g");
    struct Row
    {
        const char* token;
        std::uint32_t line;
        std::uint32_t column;
    };
    for (const Row& row : {Row{"ab", 0, 2}, Row{"c", 0, 4}, Row{"de", 3, 4}, Row{"=", 3, 5}, Row{"f", 4, 2}})
    {
        EXPECT_EQ(scan.Next(), row.token);
        EXPECT_EQ(scan.scanner.GetLine(), row.line) << row.token;
        EXPECT_EQ(scan.scanner.GetColumn(), row.column) << row.token;
    }
    std::string_view quoted;
    ASSERT_TRUE(scan.scanner.ReadQuoted(quoted));
    EXPECT_EQ(quoted, "1\n2");
    EXPECT_EQ(scan.scanner.GetLine(), 4u); // a break inside quotes is no new line
    EXPECT_EQ(scan.scanner.GetColumn(), 8u);
}

TEST(NextToken, GoesByTheSetsOfCharacters)
{
    Scan scan("a.b;c#d\ne'f");
    scan.scanner.SetDelimiters(";");
    scan.scanner.SetWhitespace(".");
    scan.scanner.SetCommentChars("#");
    scan.scanner.SetQuoteChars("'");
    for (const char* const token : {"a", "b", ";", "c", "e'f"})
    {
        EXPECT_EQ(scan.Next(), token);
    }
    Scan quotes(" 'a\"b'");
    quotes.scanner.SetQuoteChars("'");
    std::string_view quoted;
    EXPECT_TRUE(quotes.scanner.ReadQuoted(quoted));
    EXPECT_EQ(quoted, "a\"b");
}

// Whether a text begins with a value, which one, and the word behind it.
template <typename Value>
struct ReadRow
{
    const char* text;
    bool accepted;
    Value value;
    const char* rest;
};

template <typename Value>
void ExpectReads(bool (CTokenScanner::*read)(Value&), std::initializer_list<ReadRow<Value>> rows)
{
    for (const ReadRow<Value>& row : rows)
    {
        Scan scan(row.text);
        scan.scanner.SetDelimiters("{}()=");
        Value value{};
        EXPECT_EQ((scan.scanner.*read)(value), row.accepted) << row.text;
        EXPECT_EQ(value, row.value) << row.text;
        EXPECT_EQ(scan.Next(), row.rest) << row.text;
    }
}

TEST(ReadInteger, TakesPlainDigitsOnly)
{
    ExpectReads<std::uint32_t>(&CTokenScanner::ReadInteger,
                               {
                                   {"0", true, 0, "<end>"},
                                   {" \t42x", true, 42, "x"},
                                   {"4294967295", true, 4294967295u, "<end>"},
                                   {"99999999999999999999", true, 4294967295u, "<end>"},
                                   {"007", false, 0, "07"},
                                   {"-1", false, 0, "-1"},
                                   {"+1", false, 0, "+1"},
                                   {"", false, 0, "<end>"},
                                   {"  ", false, 0, "<end>"},
                                   {"\n1", false, 0, "1"},
                               });
}

TEST(ReadNumber, TakesDecimalNumbersAndStopsWhereItCannotGoOn)
{
    constexpr double infinity = std::numeric_limits<double>::infinity();
    ExpectReads<double>(
        &CTokenScanner::ReadNumber,
        {
            {"4.3", true, 4.3, "<end>"},
            {" \t-1.5e-3)", true, -1.5e-3, ")"},
            {"5.", true, 5.0, "<end>"},
            {".5", true, 0.5, "<end>"},
            {"+0.25E+2x", true, 25.0, "x"},
            {"0", true, 0.0, "<end>"},
            {"1e999", true, infinity, "<end>"},
            {"-1e999", true, -infinity, "<end>"},
            {"1e-999", true, 0.0, "<end>"},
            {"1ex5 6", true, 1.0, "6"}, // the character after the exponent letter is taken unseen
            {"1e) 6", true, 1.0, "6"},
            {"1GHz", true, 1.0, "GHz"},
            {"0x10", true, 0.0, "x10"},
            {"", false, 0.0, "<end>"},
            {"  ", false, 0.0, "<end>"},
            {".", false, 0.0, "<end>"},
            {"-", false, 0.0, "<end>"},
            {"1e", false, 0.0, "<end>"},
            {"1e+", false, 0.0, "<end>"},
            {"1e-x", false, 0.0, "x"},
            {"007", false, 0.0, "07"},
            {"abc", false, 0.0, "abc"},
            {"inf", false, 0.0, "inf"},
            {"\n5", false, 0.0, "5"},
        });
}

TEST(ReadQuoted, TakesTheTextBetweenQuotesOrToTheEnd)
{
    ExpectReads<std::string_view>(&CTokenScanner::ReadQuoted,
                                  {
                                      {" \"two words\" x", true, "two words", "x"},
                                      {"\"\")", true, "", ")"},
                                      {"\"open ) end", true, "open ) end", "<end>"},
                                      {"\"", true, "", "<end>"},
                                      {"\"a\nb*c\"", true, "a\nb*c", "<end>"},
                                      {"plain", false, "", "plain"},
                                      {"\n\"next line\"", false, "", "\"next"},
                                      {"", false, "", "<end>"},
                                      {" \t ", false, "", "<end>"},
                                  });
}
} // namespace
