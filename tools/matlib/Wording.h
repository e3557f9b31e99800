#pragma once

#include "MaterialLibrary/MLTypes.h"

#include <string>
#include <string_view>

class IMaterial;

// How things are written for users. Nothing here knows a locale.

// A number with six significant digits, without trailing zeros: 4.3, 1.68e-08.
[[nodiscard]] std::string FormatNumber(double value);

// A number that reads back exactly, as short as possible.
[[nodiscard]] std::string FormatExactly(double value);

// A frequency in Hz with twelve significant digits and no unit: 2500000000.
[[nodiscard]] std::string FormatHertz(double frequency);

// A frequency with the unit that suits it: 2.5 GHz.
[[nodiscard]] std::string FormatFrequency(double frequency);

// "1 dielectric", "2 dielectrics".
[[nodiscard]] std::string FormatCount(int count, std::string_view noun);

// The text in double quotes, control characters replaced by "?".
[[nodiscard]] std::string Quote(std::string_view text);

// A text that came from a file, control characters replaced by "?".
[[nodiscard]] std::string MakePrintable(std::string_view text);

// The text on one line: line breaks become blanks.
[[nodiscard]] std::string JoinLines(std::string_view text);

// A property's words: on the command line ("losstangent"), in JSON and CSV ("loss_tangent"), in files, in
// titles and in a sentence.
struct PropertyWords
{
    MLTABLEKIND kind;
    std::string_view option;
    std::string_view key;
    std::string_view record;
    std::string_view title;
    std::string_view brief; // a short title
    std::string_view sentence;
};
inline constexpr PropertyWords properties[] = {
    {MLTABLE_ER, "er", "er", "ER", "Er", "Er", "Er"},
    {MLTABLE_LOSS_TANGENT, "losstangent", "loss_tangent", "LOSSTANGENT", "Loss tangent", "tan",
     "loss tangent"},
    {MLTABLE_ROUGHNESS_TOP, "roughtop", "roughness_top", "ROUGHTOP", "Top roughness factor", "top",
     "top roughness factor"},
    {MLTABLE_ROUGHNESS_BOTTOM, "roughbtm", "roughness_bottom", "ROUGHBTM", "Bottom roughness factor",
     "bottom", "bottom roughness factor"},
};

// The words of a table kind, which must be one of those above.
[[nodiscard]] const PropertyWords& WordsOf(int tableKind);

// "dielectric", "metal" or "unknown".
[[nodiscard]] std::string_view KindWord(const IMaterial& material);

// The library's word for the technology, as files write it; empty for every other number.
[[nodiscard]] std::string_view TechnologyWord(int technology);

// The word of the material's technology; empty when the file gave none.
[[nodiscard]] std::string_view TechnologyWord(const IMaterial& material);
