#include "tools/matlib/check/ExplainError.h"

#include "reader/Keywords.h"
#include "tools/matlib/NearestNames.h"
#include "tools/matlib/Wording.h"
#include "tools/matlib/check/Rules.h"

#include <algorithm>

namespace
{
using Words = std::vector<std::string>;

Words KeysOf(MLMATERIALKIND kind)
{
    const auto keys = ListKeys(kind);
    return {keys.begin(), keys.end()};
}

bool Contains(const Words& words, std::string_view word)
{
    return std::ranges::find(words, word) != words.end();
}

std::string ToUpper(std::string_view word)
{
    std::string upper(word);
    std::ranges::transform(upper, upper.begin(),
                           [](char c)
                           { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; });
    return upper;
}

// "NAME, TYPE and ER"
std::string List(const Words& words)
{
    std::string list;
    for (std::size_t i = 0; i < words.size(); ++i)
    {
        list += (i == 0 ? "" : i + 1 == words.size() ? " and " : ", ") + words[i];
    }
    return list;
}

std::string NameKind(MLMATERIALKIND kind)
{
    return kind == MLMATERIAL_METAL ? "metal" : "dielectric";
}

// A word that is none of those allowed, or one of them in another letter case.
Finding ExplainUnknown(Span where, std::string_view word, const Words& allowed, std::string_view whichRule,
                       const std::string& what)
{
    const std::string upper = ToUpper(word);
    if (upper != word && Contains(allowed, upper))
    {
        return MakeError(where, rule::letterCase,
                         Quote(word) + " is not in upper case, as all words of the format are. Write " +
                             upper + ".");
    }
    const Words nearest = FindNearestNames(word, allowed);
    return MakeError(where, whichRule,
                     Quote(word) + " is no " + what +
                         (nearest.empty() ? ". There are " + List(allowed) + "."
                                          : "; did you mean " + nearest.front() + "?"));
}

Span FindBlockBrace(const ErrorContext& context)
{
    const Span before = WordBefore(context.text, context.OffsetOf(context.block));
    return Cut(context.text, before) == "{" ? before : context.SpanOf(context.block);
}

Finding ExplainUnclosed(const ErrorContext& context, std::size_t opening, std::string_view sign,
                        std::string_view found)
{
    const std::string open(context.text.substr(opening, 1));
    Finding finding =
        MakeError({opening, 1}, rule::bracketNotClosed,
                  "This \"" + open + "\" is not closed: \"" + std::string(sign) + "\" is missing.");
    finding.note = Note{context.SpanOf(found),
                        "A \"" + std::string(sign) + "\" is expected before this " + Quote(found) + "."};
    return finding;
}

// The record's "(" is not closed where another bracket opens or closes something.
Finding ExplainUnclosedRecord(const ErrorContext& context, std::string_view found)
{
    const std::size_t opening = context.text.rfind('(', context.OffsetOf(context.record));
    return ExplainUnclosed(context, opening, ")", found);
}

Finding ExplainOpenQuote(const ErrorContext& context)
{
    const std::size_t quote = context.OffsetOf(context.quoted) - 1;
    const std::size_t end = std::min(context.text.find_first_of("\r\n", quote), context.text.size());
    return MakeError({quote, end - quote}, rule::quoteNotClosed,
                     "The text that begins here has no closing quote on its line, so it goes on to the next "
                     "quote. Write a \" where it ends.");
}

bool HasTextOverLines(const ErrorContext& context)
{
    return context.quoted.find_first_of("\r\n") != std::string_view::npos;
}

bool IsBracket(std::string_view token)
{
    return token == "(" || token == "{" || token == "}";
}

Finding ExplainOutside(const ErrorContext& context, std::string_view token)
{
    const Span where = context.SpanOf(token);
    if (context.unknownBlock.data() != nullptr)
    {
        const Words words = {std::string(keyword::dielectric), std::string(keyword::metal)};
        return ExplainUnknown(context.SpanOf(context.unknownBlock), context.unknownBlock, words,
                              rule::unknownBlock, "kind of material");
    }
    if (token == "}" || token == ")")
    {
        return MakeError(where, rule::bracketSurplus,
                         "This " + Quote(token) +
                             " closes nothing: the material before it is closed already.");
    }
    const std::string upper = ToUpper(token);
    if (upper == keyword::dielectric || upper == keyword::metal)
    {
        return MakeError(where, rule::bracketMissing,
                         "A material begins with a brace. Write {" + upper + ".");
    }
    return MakeError(where, rule::bracketMissing,
                     Quote(token) + " stands outside of any material. A material begins with {DIELECTRIC or "
                                    "{METAL; a comment begins with *.");
}

Finding ExplainBetweenRecords(const ErrorContext& context, std::string_view token)
{
    const Span where = context.SpanOf(token);
    if (token == "{")
    {
        return ExplainUnclosed(context, FindBlockBrace(context).offset, "}", token);
    }
    if (token == ")")
    {
        return MakeError(where, rule::bracketSurplus,
                         "This \")\" closes nothing: the record before it is closed.");
    }
    const std::string upper = ToUpper(token);
    if (Contains(KeysOf(context.GetKind()), upper))
    {
        return MakeError(where, rule::bracketMissing,
                         "A record begins with a bracket. Write (" + upper + ".");
    }
    return MakeError(where, rule::bracketMissing,
                     Quote(token) +
                         " stands between two records. A record begins with \"(\", and \"}\" ends the "
                         "material.");
}

Finding ExplainUnknownKey(const ErrorContext& context)
{
    const MLMATERIALKIND kind = context.GetKind();
    const MLMATERIALKIND other = kind == MLMATERIAL_METAL ? MLMATERIAL_DIELECTRIC : MLMATERIAL_METAL;
    const Span where = context.SpanOf(context.record);
    const std::string upper = ToUpper(context.record);
    if (Contains(KeysOf(other), upper) && !Contains(KeysOf(kind), upper))
    {
        return MakeError(where, rule::otherKind,
                         upper + " is a key of a " + NameKind(other) + "; this is a " + NameKind(kind) +
                             ". Remove the record, or move it to a file of " + NameKind(other) + "s.");
    }
    return ExplainUnknown(where, context.record, KeysOf(kind), rule::unknownKey,
                          "key of a " + NameKind(kind));
}

Finding ExplainRecordEnd(const ErrorContext& context, std::string_view token)
{
    if (!Contains(KeysOf(context.GetKind()), context.record))
    {
        return ExplainUnknownKey(context);
    }
    if (context.quoted.data() != nullptr && HasTextOverLines(context))
    {
        return ExplainOpenQuote(context);
    }
    if (context.technology == ")")
    {
        return MakeError(context.SpanOf(context.record), rule::valueMissing,
                         "TECHNOLOGY has no value. Write Core, Prepreg or Flexcore.");
    }
    if (IsBracket(token))
    {
        return ExplainUnclosedRecord(context, token);
    }
    const std::string key(context.record);
    const Span where = context.SpanOf(token);
    if (context.quoted.data() != nullptr)
    {
        return MakeError(where, rule::surplusWord,
                         Quote(token) + " stands behind the text of " + key +
                             ", which ended at the quote before. A text cannot contain a quote.");
    }
    if (context.technology.data() != nullptr)
    {
        return MakeError(where, rule::surplusWord,
                         "TECHNOLOGY takes one word: Core, Prepreg or Flexcore. " + Quote(token) +
                             " is a second one.");
    }
    return ExplainBehindNumber(context, token);
}

Finding ExplainEquals(const ErrorContext& context, std::string_view token)
{
    const std::string key(Cut(context.text, WordBefore(context.text, context.OffsetOf(token))));
    const Span where =
        token.starts_with('"') ? WordAt(context.text, context.OffsetOf(token)) : context.SpanOf(token);
    if (token.starts_with(':'))
    {
        return MakeError(where, rule::equalsMissing, "Write \"=\" instead of \":\" behind " + key + ".");
    }
    return MakeError(where, rule::equalsMissing,
                     "\"=\" is missing between " + key + " and " +
                         (token.starts_with('"') ? "its text" : Quote(token)) + ". Write " + key + " = " +
                         (token == ")" ? "and a value" : std::string(Cut(context.text, where))) + ".");
}

// The text without quotes that begins there and ends with its record or its line.
Span FindBareText(std::string_view text, std::size_t start)
{
    const std::size_t end = std::min(text.find_first_of(")\r\n", start), text.size());
    return {start, std::max(FindEnd(text.substr(0, end)), start + 1) - start};
}

Finding ExplainText(const ErrorContext& context, std::string_view equals)
{
    const std::string_view text = context.text;
    const std::string key(context.record);
    const std::size_t start = SkipBlanks(text, context.OffsetOf(equals) + equals.size());
    const std::size_t next = SkipBlanks(text, start, true);
    if (next == text.size())
    {
        return ExplainEnd(context);
    }
    if (next != start && text[next] == '"')
    {
        return MakeError(context.SpanOf(context.record), rule::nextLine,
                         "The text of " + key + " stands on the next line. Write " +
                             std::string(context.GetWord(next)) + " behind the \"=\" on the same line.");
    }
    if (next != start || text[start] == ')' || text[start] == '*')
    {
        return MakeError(context.SpanOf(context.record), rule::valueMissing,
                         key + " has no text. Write one in double quotes, or leave the record out.");
    }
    const Span where = FindBareText(text, start);
    const std::string_view bare = Cut(text, where);
    if (bare.starts_with('\'') || bare.starts_with('\x93') || bare.starts_with("\xE2\x80"))
    {
        return MakeError(
            where, rule::quotesMissing,
            "These are not the quotes that a text stands in. Write plain double quotes: \"...\".");
    }
    return MakeError(where, rule::quotesMissing,
                     "A text stands in double quotes. Write " + key + " = " + Quote(bare) + ".");
}

// Whether the word stands behind a number and looks like what people write there.
bool IsUnitBehindNumber(const ErrorContext& context, std::string_view token)
{
    const std::size_t offset = context.OffsetOf(token);
    const std::string_view number = Cut(context.text, WordBefore(context.text, offset));
    const bool isBehind = !number.empty() && number.back() >= '.' && number.back() <= '9';
    const bool isAdjacent = SkipBlanks(context.text, offset - 1, true) != offset;
    // The degree sign in UTF-8 and in a code page.
    constexpr std::string_view units[] = {"%", "C", "K", "F", "degC", "\302\260C", "\260C"};
    return isBehind && (isAdjacent || std::ranges::find(units, token) != std::end(units));
}

Finding ExplainTableItem(const ErrorContext& context, std::string_view token)
{
    const std::string key(context.record);
    const Span where = context.SpanOf(token);
    if (IsBracket(token))
    {
        return ExplainUnclosedRecord(context, token);
    }
    if (context.frequency.starts_with(',') && context.OffsetOf(context.frequency) > 0)
    {
        return ExplainBehindNumber(context, context.frequency);
    }
    if (token == ",")
    {
        return MakeError(where, rule::surplusWord, "Rows are separated by blanks. Leave the comma out.");
    }
    if (IsUnitBehindNumber(context, token))
    {
        return ExplainBehindNumber(context, token);
    }
    if (token == "=" || (token[0] >= '0' && token[0] <= '9'))
    {
        return MakeError(where, rule::unknownWord,
                         key + " takes VALUE = and a number, or TABLE = and rows. Write for example (" + key +
                             " VALUE = " + (token == "=" ? "4.2" : std::string(token)) + ").");
    }
    if (Contains(KeysOf(context.GetKind()), token))
    {
        return MakeError(where, rule::bracketNotClosed,
                         std::string(token) + " begins a record of its own. Close " + key +
                             " with \")\" and write (" + std::string(token) + ".");
    }
    const Words words = {std::string(keyword::table), std::string(keyword::temperature),
                         std::string(keyword::value)};
    return ExplainUnknown(where, token, words, rule::unknownWord, "word of a table");
}

Finding ExplainMixedKinds(const ErrorContext& context, std::string_view token)
{
    Finding finding = MakeError(context.SpanOf(token), rule::mixedKinds,
                                "A file holds dielectrics or metals, not both. Move the " +
                                    NameKind(context.GetKind()) + "s into another file.");
    finding.note = Note{context.SpanOf(context.firstBlock), "This is the first material of the file."};
    return finding;
}
} // namespace

Finding ExplainEnd(const ErrorContext& context)
{
    const std::size_t end = FindEnd(context.text);
    if (context.quoted.data() != nullptr && context.OffsetOf(context.quoted) + context.quoted.size() >= end)
    {
        return ExplainOpenQuote(context);
    }
    const std::string where = "The file ends inside a ";
    const Span brace = FindBlockBrace(context);
    const std::size_t parenthesis = FindOpenParenthesis(context.text, brace.offset, end);
    const bool isInRecord = parenthesis != std::string_view::npos;
    Finding finding = MakeError(
        {end, 0}, rule::bracketNotClosed,
        where + (isInRecord ? "record: \")\" and \"}\" are missing." : "material: \"}\" is missing."));
    const std::size_t opening = isInRecord ? parenthesis : brace.offset;
    finding.note =
        Note{{opening, 1}, std::string("The ") + (isInRecord ? "record" : "material") + " begins here."};
    return finding;
}

Finding ExplainError(const ErrorContext& context, const BrokenRule& broken)
{
    const bool isAtEnd = broken.token.empty();
    switch (broken.expected)
    {
    case Expected::header:
    case Expected::version:
    case Expected::versionNumber:
    case Expected::knownVersion:
        return ExplainHeader(context, broken);
    case Expected::sameKind:
        return ExplainMixedKinds(context, broken.token);
    case Expected::text:
        return ExplainText(context, broken.token);
    case Expected::number:
        return ExplainNumber(context, broken);
    case Expected::rowValue:
        return ExplainRowValue(context, broken);
    case Expected::block:
        return ExplainOutside(context, broken.token);
    case Expected::record:
        return isAtEnd ? ExplainEnd(context) : ExplainBetweenRecords(context, broken.token);
    case Expected::recordEnd:
        return isAtEnd ? ExplainEnd(context) : ExplainRecordEnd(context, broken.token);
    case Expected::equals:
        return isAtEnd ? ExplainEnd(context) : ExplainEquals(context, broken.token);
    case Expected::tableItem:
        return ExplainTableItem(context, broken.token);
    case Expected::blockWord:
        return MakeError({FindEnd(context.text), 0}, rule::bracketNotClosed,
                         "The file ends behind a \"{\". A material follows it, or it is one too many.");
    case Expected::key:
    case Expected::word:
        break;
    }
    return ExplainEnd(context);
}
