#include "reader/Keywords.h"
#include "shared/Misc_String/Decimal.h"
#include "tools/matlib/NearestNames.h"
#include "tools/matlib/Wording.h"
#include "tools/matlib/check/ExplainError.h"
#include "tools/matlib/check/Rules.h"

#include <algorithm>

namespace
{
struct UnitOfLength
{
    std::string_view name;
    double metres;
};
constexpr UnitOfLength lengths[] = {{"m", 1.0},        {"cm", 1e-2},        {"mm", 1e-3},
                                    {"um", 1e-6},      {"\xC2\xB5m", 1e-6}, {"\xCE\xBCm", 1e-6},
                                    {"\xB5m", 1e-6},   {"nm", 1e-9},        {"mil", 25.4e-6},
                                    {"mils", 25.4e-6}, {"in", 25.4e-3},     {"inch", 25.4e-3}};

// As thicknesses are written: 200e-6.
std::string FormatMetres(double metres)
{
    return metres > 0.0 && metres < 1e-3 ? FormatNumber(metres * 1e6) + "e-6" : FormatNumber(metres);
}

bool IsNumber(std::string_view word)
{
    const DecimalResult number = ParseDecimal(word);
    return number.verdict != DecimalVerdict::None && number.stop == word.data() + word.size();
}

// "4,2" with a point; nothing where that makes no number.
std::optional<std::string> ReplaceComma(std::string_view word)
{
    std::string replaced(word);
    std::ranges::replace(replaced, ',', '.');
    const bool isOne = std::ranges::count(word, ',') == 1 && IsNumber(replaced);
    return isOne ? std::optional(replaced) : std::nullopt;
}

Finding MakeCommaError(Span where, std::string_view word, const std::string& replaced)
{
    return MakeError(where, rule::decimalComma,
                     Quote(word) + " has a decimal comma. The decimal sign is a point: write " + replaced +
                         ".");
}

std::string WithoutLeadingZeros(std::string_view word)
{
    const std::size_t sign = word.starts_with('-') || word.starts_with('+') ? 1 : 0;
    std::size_t first = std::min(word.find_first_not_of('0', sign), word.size());
    if (first == word.size() || !decimal::IsDigit(word[first]))
    {
        --first; // one is kept before the point
    }
    return std::string(word.substr(0, sign)) + std::string(word.substr(first));
}

// Why the word is no number.
Finding ExplainWord(Span where, std::string_view word, std::string_view key)
{
    if (const auto replaced = ReplaceComma(word))
    {
        return MakeCommaError(where, word, *replaced);
    }
    const std::string quoted = word.starts_with('"') ? MakePrintable(word) : Quote(word);
    const std::string_view digits = word.substr(word.starts_with('-') || word.starts_with('+') ? 1 : 0);
    const auto refuse = [&](const std::string& why) { return MakeError(where, rule::number, why); };
    if (word.starts_with('"'))
    {
        return refuse(std::string(key) + " takes a number, without quotes.");
    }
    if (digits.starts_with('0') && digits.size() > 1 && decimal::IsDigit(digits[1]) && IsNumber(word))
    {
        return refuse(quoted + " has zeros in front. Write " + WithoutLeadingZeros(word) + ".");
    }
    const DecimalResult number = ParseDecimal(word);
    if (number.verdict != DecimalVerdict::None && *number.stop != '\0' &&
        decimal::IsExponentLetter(*number.stop))
    {
        const std::string mantissa(word.data(), number.stop);
        return refuse(quoted + " has no digits behind the " + *number.stop + ". Write " + mantissa + ", or " +
                      mantissa + "e-6 for a millionth of it.");
    }
    if (key == keyword::temperature)
    {
        return refuse(quoted + " is no number. A temperature is in degrees Celsius: write 25.");
    }
    return refuse(quoted + " is no number. Numbers look like 4.2, 25 or 200e-6.");
}

// What stands for a value that has to be on this line: the end of the line, or another word.
Finding ExplainValueAt(const ErrorContext& context, std::size_t offset, Span owner, std::string_view key)
{
    const std::string_view text = context.text;
    const std::size_t start = SkipBlanks(text, offset);
    if (SkipBlanks(text, start, true) == text.size())
    {
        return ExplainEnd(context);
    }
    const std::string name(key);
    const bool isOfRow = ParseDecimal(key).verdict != DecimalVerdict::None;
    const std::string there =
        isOfRow ? " behind it, on the same line." : " behind its \"=\", on the same line.";
    if (text[start] == '\r' || text[start] == '\n')
    {
        const std::string_view next = context.GetWord(SkipBlanks(text, start, true));
        if (ParseDecimal(next).verdict != DecimalVerdict::None)
        {
            return MakeError(owner, rule::nextLine,
                             "The value of " + name + " stands on the next line. Write " + std::string(next) +
                                 there);
        }
    }
    if (std::string_view("\r\n*(){}=").find(text[start]) != std::string_view::npos)
    {
        return MakeError(owner, rule::valueMissing, name + " has no value. Write a number" + there);
    }
    const Span where = WordAt(text, start);
    return ExplainWord(where, Cut(text, where), key);
}

// What to write for a number with this unit behind it.
std::string Convert(double value, std::string_view unit, std::string_view key)
{
    const auto length = std::ranges::find(lengths, unit, &UnitOfLength::name);
    if (key == "THICKNESS" && length != std::end(lengths))
    {
        return FormatMetres(value * length->metres);
    }
    if (unit == "%")
    {
        return FormatNumber(value / 100.0);
    }
    if (unit == "k" || unit == "K")
    {
        return key == keyword::temperature ? FormatNumber(value - 273.15) : FormatNumber(value * 1e3);
    }
    return unit == "u" && key == "THICKNESS" ? FormatMetres(value * 1e-6) : FormatNumber(value);
}
} // namespace

Finding ExplainNumber(const ErrorContext& context, const BrokenRule& broken)
{
    const Span equals = context.SpanOf(broken.token);
    const Span key = WordBefore(context.text, equals.offset);
    return ExplainValueAt(context, equals.offset + equals.length, key, Cut(context.text, key));
}

Finding ExplainRowValue(const ErrorContext& context, const BrokenRule& broken)
{
    const std::string_view frequency = broken.token;
    const Span where = context.SpanOf(frequency);
    const std::size_t behind = where.offset + where.length;
    const bool isAdjacent = where.offset > 0 && decimal::IsDigit(context.text[where.offset - 1]);
    if (frequency.starts_with(',') && isAdjacent)
    {
        return ExplainBehindNumber(context, frequency);
    }
    const std::size_t next = SkipBlanks(context.text, behind);
    const Span word = WordAt(context.text, next);
    const std::string unit(Cut(context.text, word));
    for (const std::string_view known : {"Hz", "kHz", "MHz", "GHz", "THz", "k", "M", "G", "T"})
    {
        if (EqualIgnoringCase(unit, known) && IsNumber(frequency))
        {
            return MakeError({where.offset, word.offset + word.length - where.offset}, rule::blankBeforeUnit,
                             "A frequency and its unit are one word. Write " + std::string(frequency) +
                                 std::string(known) + ", without the blank.");
        }
    }
    if (std::string_view("+-.,").find(frequency[0]) == std::string_view::npos &&
        !decimal::IsDigit(frequency[0]))
    {
        return MakeError(
            where, rule::unknownWord,
            Quote(frequency) +
                " is no frequency and no word of a table, which are TABLE, TEMPERATURE and VALUE.");
    }
    return ExplainValueAt(context, behind, where, frequency);
}

Finding ExplainBehindNumber(const ErrorContext& context, std::string_view word)
{
    const Span unit = context.SpanOf(word);
    const Span number = WordBefore(context.text, unit.offset);
    const Span whole{number.offset, unit.offset + unit.length - number.offset};
    const std::string_view wholeText = Cut(context.text, whole);
    if (const auto replaced = ReplaceComma(wholeText))
    {
        return MakeCommaError(whole, wholeText, *replaced);
    }
    const Span sign = WordBefore(context.text, number.offset);
    std::string_view key = context.record;
    if (Cut(context.text, sign) == "=")
    {
        key = Cut(context.text, WordBefore(context.text, sign.offset));
    }
    std::string pointed(wholeText);
    std::ranges::replace(pointed, ',', '.');
    const DecimalResult parsed = ParseDecimal(pointed);
    if (parsed.verdict == DecimalVerdict::None)
    {
        return MakeError(unit, rule::surplusWord,
                         "Nothing but a number belongs here, not " + Quote(word) + ".");
    }
    const char* const rest =
        pointed.data() + SkipBlanks(pointed, static_cast<std::size_t>(parsed.stop - pointed.data()));
    const std::string start = Quote(wholeText) + ": ";
    const std::string write = " Write " + Convert(parsed.value, rest, key) + ".";
    if (key == "THICKNESS")
    {
        return MakeError(whole, rule::unit,
                         start + "a thickness is in metres and stands without a unit." + write);
    }
    if (key == "RB")
    {
        return MakeError(whole, rule::unit,
                         start + "a resistivity is in ohm metres and stands without a unit." + write);
    }
    if (key == keyword::temperature)
    {
        return MakeError(whole, rule::unit,
                         start + "a temperature is in degrees Celsius and stands without a unit." + write);
    }
    return MakeError(whole, rule::unit, start + "only frequencies have a unit or a suffix." + write);
}
