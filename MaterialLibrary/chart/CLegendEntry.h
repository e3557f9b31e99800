#pragma once

#include "chart/Geometry.h"

#include <string>

struct CLegendEntry
{
    Colour colour = 0;
    std::string name;
};
