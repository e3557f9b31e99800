#pragma once

struct CAxis;

struct UnitPrefix
{
    const char* text;
    double factor;
};

// The prefix under which the axis writes a value: the largest whose factor lies below it, so 1000 still goes
// without and 1500 is 1.5k; none for 0 and on an axis without automatic prefixes.
[[nodiscard]] const UnitPrefix& GetUnitPrefix(const CAxis& axis, double value);
