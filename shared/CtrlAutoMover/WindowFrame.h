#pragma once

#include <optional>
#include <string>
#include <string_view>

// The normal position and size of a window, in screen pixels.
struct WindowFrame
{
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;

    friend bool operator==(const WindowFrame&, const WindowFrame&) = default;
};

struct NumberPair
{
    int first = 0;
    int second = 0;

    friend bool operator==(const NumberPair&, const NumberPair&) = default;
};

// Two numbers as settings keep them, "-8,30".
[[nodiscard]] std::string FormatNumberPair(NumberPair pair);

// The two numbers at the beginning of a setting; blanks are allowed around each. Nothing when there are no
// two, or one that no 32 bits hold.
[[nodiscard]] std::optional<NumberPair> ParseNumberPair(std::string_view text);

// The frame with the position and the size that settings keep, each where it is one; a size without extent
// is none.
[[nodiscard]] WindowFrame ApplySettings(WindowFrame frame, std::string_view position, std::string_view size);

// The frame moved into a monitor's work area. The size stays; what is larger than the area begins at its left
// and top.
[[nodiscard]] WindowFrame MoveIntoWorkArea(WindowFrame frame, const WindowFrame& workArea);
