#include "shared/CtrlAutoMover/WindowFrame.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <system_error>

namespace
{
void SkipBlanks(std::string_view& text)
{
    text.remove_prefix(std::min(text.find_first_not_of(" \t\n\v\f\r"), text.size()));
}

bool TakeNumber(std::string_view& text, int& number)
{
    SkipBlanks(text);
    if (text.starts_with('+') && !text.substr(1).starts_with('-'))
    {
        text.remove_prefix(1);
    }
    const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    text.remove_prefix(static_cast<std::size_t>(stop - text.data()));
    return error == std::errc();
}

bool TakeComma(std::string_view& text)
{
    SkipBlanks(text);
    const bool found = text.starts_with(',');
    text.remove_prefix(found ? 1 : 0);
    return found;
}

int MoveIntoRange(int start, int extent, int areaStart, int areaExtent)
{
    const std::int64_t last = std::int64_t{areaStart} + areaExtent - extent;
    return static_cast<int>(std::max<std::int64_t>(areaStart, std::min<std::int64_t>(last, start)));
}
} // namespace

std::string FormatNumberPair(NumberPair pair)
{
    return std::to_string(pair.first) + ',' + std::to_string(pair.second);
}

std::optional<NumberPair> ParseNumberPair(std::string_view text)
{
    NumberPair pair;
    if (TakeNumber(text, pair.first) && TakeComma(text) && TakeNumber(text, pair.second))
    {
        return pair;
    }
    return std::nullopt;
}

WindowFrame ApplySettings(WindowFrame frame, std::string_view position, std::string_view size)
{
    if (const auto corner = ParseNumberPair(position))
    {
        frame.left = corner->first;
        frame.top = corner->second;
    }
    if (const auto extent = ParseNumberPair(size); extent && extent->first > 0 && extent->second > 0)
    {
        frame.width = extent->first;
        frame.height = extent->second;
    }
    return frame;
}

WindowFrame MoveIntoWorkArea(WindowFrame frame, const WindowFrame& workArea)
{
    frame.left = MoveIntoRange(frame.left, frame.width, workArea.left, workArea.width);
    frame.top = MoveIntoRange(frame.top, frame.height, workArea.top, workArea.height);
    return frame;
}
