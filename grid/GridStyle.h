#pragma once

#include <cstdint>
#include <string>

// What the cells of a grid hold. Numbers stand at the right edge of their column, everything else at the
// left; a mark is shown as a dot instead of its text.
enum class GridValueType : std::uint8_t
{
    Text,
    Number,
    Mark
};

// Faint cells stand where no single value can be shown.
enum class GridEmphasis : std::uint8_t
{
    Normal,
    Faint
};

// The look of cells. Cells share their styles: each holds the identifier of one.
struct GridStyle
{
    GridValueType valueType = GridValueType::Text;
    GridEmphasis emphasis = GridEmphasis::Normal;
    std::string value; // the text of cells that are given the style without a text of their own
};

// Names a style of one grid. Style 0 is the standard style, which every new cell has.
using GridStyleId = std::uint16_t;
