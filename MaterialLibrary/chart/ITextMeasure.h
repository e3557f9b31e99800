#pragma once

#include "chart/Geometry.h"

#include <string_view>

class ITextMeasure
{
public:
    // The cell that one line of text takes in the chart's font; the same for the same text.
    [[nodiscard]] virtual PixelSize GetTextExtent(std::string_view text) = 0;

protected:
    ~ITextMeasure() = default;
};
