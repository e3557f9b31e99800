#pragma once

#include <string>
#include <string_view>

// What "matlib check" tells findings apart by. docs/check-rules.md has a section for each.
namespace rule
{
// Errors: the library refuses the file.
inline constexpr std::string_view byteOrderMark = "byte-order-mark";
inline constexpr std::string_view utf16 = "utf-16";
inline constexpr std::string_view header = "header";
inline constexpr std::string_view version = "version";
inline constexpr std::string_view newerVersion = "newer-version";
inline constexpr std::string_view letterCase = "letter-case";
inline constexpr std::string_view unknownKey = "unknown-key";
inline constexpr std::string_view otherKind = "other-kind";
inline constexpr std::string_view unknownBlock = "unknown-block";
inline constexpr std::string_view unknownWord = "unknown-word";
inline constexpr std::string_view surplusWord = "surplus-word";
inline constexpr std::string_view mixedKinds = "mixed-kinds";
inline constexpr std::string_view bracketMissing = "bracket-missing";
inline constexpr std::string_view bracketSurplus = "bracket-surplus";
inline constexpr std::string_view bracketNotClosed = "bracket-not-closed";
inline constexpr std::string_view quoteNotClosed = "quote-not-closed";
inline constexpr std::string_view quotesMissing = "quotes-missing";
inline constexpr std::string_view equalsMissing = "equals-missing";
inline constexpr std::string_view valueMissing = "value-missing";
inline constexpr std::string_view nextLine = "next-line";
inline constexpr std::string_view number = "number";
inline constexpr std::string_view decimalComma = "decimal-comma"; // or a warning
inline constexpr std::string_view unit = "unit";
inline constexpr std::string_view blankBeforeUnit = "blank-before-unit";

// Warnings: the library reads the file as it stands.
inline constexpr std::string_view frequencyOrder = "frequency-order";
inline constexpr std::string_view frequencyRepeated = "frequency-repeated";
inline constexpr std::string_view frequencyUnit = "frequency-unit";
inline constexpr std::string_view frequencyRange = "frequency-range";
inline constexpr std::string_view noRowsInBand = "no-rows-in-band";
inline constexpr std::string_view erRange = "er-range";
inline constexpr std::string_view erRising = "er-rising";
inline constexpr std::string_view erRisesSum = "er-rises-sum";
inline constexpr std::string_view lossTangentRange = "loss-tangent-range";
inline constexpr std::string_view noFit = "no-fit";
inline constexpr std::string_view fitMissesRows = "fit-misses-rows";
inline constexpr std::string_view temperatureBetween = "temperature-between";
inline constexpr std::string_view thickness = "thickness";
inline constexpr std::string_view farThickness = "far-thickness";
inline constexpr std::string_view technology = "technology";
inline constexpr std::string_view nameMissing = "name-missing";
inline constexpr std::string_view duplicateName = "duplicate-name";
inline constexpr std::string_view textOverLines = "text-over-lines";
inline constexpr std::string_view nonAscii = "non-ascii";

inline constexpr std::string_view errors[] = {
    byteOrderMark,  utf16,          header,           version,        newerVersion,  letterCase,
    unknownKey,     otherKind,      unknownBlock,     unknownWord,    surplusWord,   mixedKinds,
    bracketMissing, bracketSurplus, bracketNotClosed, quoteNotClosed, quotesMissing, equalsMissing,
    valueMissing,   nextLine,       number,           decimalComma,   unit,          blankBeforeUnit};
inline constexpr std::string_view warnings[] = {
    decimalComma, frequencyOrder, frequencyRepeated,  frequencyUnit, frequencyRange,
    noRowsInBand, erRange,        erRising,           erRisesSum,    lossTangentRange,
    noFit,        fitMissesRows,  temperatureBetween, thickness,     farThickness,
    technology,   nameMissing,    duplicateName,      textOverLines, nonAscii};
} // namespace rule

// What the rule finds and how to mend it, with a wrong and a right file. Empty for a word that is no rule.
[[nodiscard]] std::string ExplainRule(std::string_view name);
