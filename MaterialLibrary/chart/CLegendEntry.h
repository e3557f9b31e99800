#pragma once

#include "MaterialLibrary/chart/Geometry.h"

#include <string>

struct CLegendEntry
{
    Colour colour = 0;
    std::string name;
};
