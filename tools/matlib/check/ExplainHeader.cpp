#include "reader/Keywords.h"
#include "tools/matlib/NearestNames.h"
#include "tools/matlib/Wording.h"
#include "tools/matlib/check/ExplainError.h"
#include "tools/matlib/check/Rules.h"

namespace
{
constexpr std::string_view bothLines = "A material file begins with {MAT_FILE} and {VERSION=1.0}";

// Text in Latin letters has a NUL in every other byte.
bool IsUtf16(std::string_view file)
{
    const auto isNul = [&](std::size_t i) { return file[i] == '\0'; };
    return file.starts_with("\xFF\xFE") || file.starts_with("\xFE\xFF") ||
           (file.size() > 3 && isNul(0) != isNul(1) && isNul(2) == isNul(0) && isNul(3) == isNul(1));
}

std::optional<Finding> ExplainEncoding(const ErrorContext& context)
{
    if (context.text.starts_with("\xEF\xBB\xBF"))
    {
        return MakeError(
            {0, 3}, rule::byteOrderMark,
            "The file begins with a byte order mark, three invisible bytes that some editors add to "
            "UTF-8. Save it as UTF-8 without byte order mark, or as ANSI.");
    }
    if (IsUtf16(context.wholeFile))
    {
        return MakeError(
            {0, 1}, rule::utf16,
            "The file is in UTF-16, with two bytes for each character. Save it as ANSI, or as UTF-8 "
            "without byte order mark.");
    }
    return std::nullopt;
}

Finding ExplainVersionNumber(const ErrorContext& context, std::string_view sign)
{
    const std::size_t start = SkipBlanks(context.text, context.OffsetOf(sign) + sign.size());
    const Span word = WordAt(context.text, start);
    const bool hasZero = word.length > 1 && context.text[start] == '0';
    return MakeError(word, rule::version,
                     hasZero ? "The numbers of a version have no zeros in front. Write {VERSION=1.0}."
                             : "A version is two numbers with a point between them. Write {VERSION=1.0}.");
}
} // namespace

Finding ExplainHeader(const ErrorContext& context, const BrokenRule& broken)
{
    if (auto finding = ExplainEncoding(context))
    {
        return *finding;
    }
    const std::string_view token = broken.token;
    if (broken.expected == Expected::versionNumber)
    {
        return ExplainVersionNumber(context, token);
    }
    if (broken.expected == Expected::knownVersion)
    {
        const std::size_t equals = context.text.rfind('=', context.OffsetOf(token));
        const std::size_t start = SkipBlanks(context.text, equals + 1);
        const Span number{start, FindEnd(context.text.substr(0, context.OffsetOf(token))) - start};
        return MakeError(
            number, rule::newerVersion,
            "Version " + std::string(Cut(context.text, number)) +
                " is newer than what the library reads, which is 1.0. Write {VERSION=1.0} if the "
                "file uses nothing that came later.");
    }
    if (token.empty())
    {
        const std::size_t end = FindEnd(context.text);
        return MakeError({end, 0}, rule::header,
                         std::string(bothLines) + ". This one " +
                             (end == 0 ? "is empty." : "ends before that."));
    }
    const Span where = context.SpanOf(token);
    const bool wantsVersion = broken.expected == Expected::version;
    const std::string wanted(wantsVersion ? keyword::version : keyword::matFile);
    if (token != wanted && EqualIgnoringCase(token, wanted))
    {
        return MakeError(where, rule::letterCase,
                         Quote(token) + " is in lower case; words are in upper case here: write " + wanted +
                             ".");
    }
    const std::string missing = wantsVersion ? "{VERSION=1.0}" : "{MAT_FILE}";
    const std::string place =
        wantsVersion ? " between {MAT_FILE} and the first material" : " as its first line";
    const std::string_view whichRule = wantsVersion ? rule::version : rule::header;
    if (token == keyword::dielectric || token == keyword::metal)
    {
        return MakeError(where, whichRule,
                         "A material begins here already. The file needs " + missing + place + ".");
    }
    if (!FindNearestNames(token, std::vector{wanted}).empty())
    {
        return MakeError(where, whichRule, Quote(token) + " is misspelt. Write " + missing + ".");
    }
    if (wantsVersion && (token == "}" || token == "."))
    {
        return MakeError(where, whichRule,
                         "A version is two numbers with a point between them. Write {VERSION=1.0}.");
    }
    return MakeError(where, whichRule,
                     std::string(bothLines) + ". Here stands " + Quote(token) + " instead of a part of " +
                         missing + ".");
}
