#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

// A column on the screen: the number by which the grid's owner knows it, and its width in hundredths of an
// average character, so that it keeps its look at another scale.
struct ColumnPlace
{
    int userAttribute = 0;
    int width = 0;

    friend bool operator==(const ColumnPlace&, const ColumnPlace&) = default;
};

// Columns from left to right as settings keep them, "9:2150,1:300".
[[nodiscard]] std::string FormatColumnPlaces(std::span<const ColumnPlace> places);

// Nothing unless the whole text has that form.
[[nodiscard]] std::vector<ColumnPlace> ParseColumnPlaces(std::string_view text);
