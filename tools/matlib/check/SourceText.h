#pragma once

#include "reader/CTokenScanner.h"

#include <cstddef>
#include <string_view>
#include <vector>

// A part of a text.
struct Span
{
    std::size_t offset = 0;
    std::size_t length = 1;

    // clang-tidy takes a 0 that the compiler writes here for a null pointer.
    // NOLINTNEXTLINE(modernize-use-nullptr)
    friend auto operator<=>(const Span&, const Span&) = default;
};

// The words of a material file, as far as they can be told without reading it from its beginning. The text
// must outlive it.

// Up to the next blank, line break, comment, bracket, "=" or the text's end; a bracket or "=" by itself. A
// word that begins with a quote goes up to the closing one, or to the end of the line.
[[nodiscard]] Span WordAt(std::string_view text, std::size_t offset);

// The word that ends at the offset or before the blanks and line breaks in front of it. Empty where there is
// none.
[[nodiscard]] Span WordBefore(std::string_view text, std::size_t offset);

// The first offset from there on with neither a blank nor, if wanted, a line break.
[[nodiscard]] std::size_t SkipBlanks(std::string_view text, std::size_t offset, bool alsoLineBreaks = false);

// Behind the last character that is neither blank nor line break.
[[nodiscard]] std::size_t FindEnd(std::string_view text);

// The last "(" of [from, to) that no ")" closes; npos where there is none.
[[nodiscard]] std::size_t FindOpenParenthesis(std::string_view text, std::size_t from, std::size_t to);

[[nodiscard]] constexpr std::string_view Cut(std::string_view text, Span span)
{
    return text.substr(span.offset, span.length);
}

// The lines of a text. CR, LF and CR LF end one.
class CSourceLines
{
public:
    explicit CSourceLines(std::string_view wholeText);

    // Columns count bytes.
    [[nodiscard]] Place PlaceOf(std::size_t offset) const;
    [[nodiscard]] std::string_view GetLine(unsigned line) const;

private:
    std::string_view text;
    std::vector<std::size_t> starts;
};
