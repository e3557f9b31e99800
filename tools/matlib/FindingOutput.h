#pragma once

#include "tools/matlib/Json.h"
#include "tools/matlib/check/Finding.h"

// How findings are shown.

enum class Severity
{
    error,
    warning,
    note
};

// Bytes for a terminal around what they colour; all empty without colours.
struct Palette
{
    std::string_view file;
    std::string_view error;
    std::string_view warning;
    std::string_view note;
    std::string_view caret;
    std::string_view end;
};
[[nodiscard]] Palette ChoosePalette(bool inColour);

// "FILE:LINE:COLUMN: error: TEXT [rule]", the line of the source and a caret under the word; then the
// finding's note alike. A finding without a rule has no brackets.
[[nodiscard]] std::string RenderFinding(std::string_view path, const CSourceLines& lines,
                                        const Finding& finding, Severity severity, const Palette& palette);

[[nodiscard]] Json FindingAsJson(const CSourceLines& lines, const Finding& finding, Severity severity);
