#pragma once

#include <string_view>

// The text with that identifier as it was compiled in, for what also runs without the module's string table.
// Empty when there is none.
[[nodiscard]] constexpr std::string_view GetCompiledText(unsigned wanted)
{
    switch (wanted)
    {
#define ML_TEXT(identifier, text)                                                                            \
    case identifier:                                                                                         \
        return text;
#include "resources/Texts.inc"
#undef ML_TEXT
    default:
        return {};
    }
}
