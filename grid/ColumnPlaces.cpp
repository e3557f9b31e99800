#include "grid/ColumnPlaces.h"

#include <charconv>
#include <system_error>

namespace
{
constexpr int widest = 100'000;

bool TakeNumber(std::string_view& text, int& number)
{
    const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    text.remove_prefix(static_cast<std::size_t>(stop - text.data()));
    return error == std::errc() && number >= 0 && number <= widest;
}

bool Take(std::string_view& text, char character)
{
    const bool found = text.starts_with(character);
    text.remove_prefix(found ? 1 : 0);
    return found;
}
} // namespace

std::string FormatColumnPlaces(std::span<const ColumnPlace> places)
{
    std::string text;
    for (const ColumnPlace& place : places)
    {
        text += text.empty() ? "" : ",";
        text += std::to_string(place.userAttribute) + ':' + std::to_string(place.width);
    }
    return text;
}

std::vector<ColumnPlace> ParseColumnPlaces(std::string_view text)
{
    std::vector<ColumnPlace> places;
    do
    {
        ColumnPlace place;
        if (!TakeNumber(text, place.userAttribute) || !Take(text, ':') || !TakeNumber(text, place.width))
        {
            return {};
        }
        places.push_back(place);
    } while (Take(text, ','));
    return text.empty() ? places : std::vector<ColumnPlace>();
}
