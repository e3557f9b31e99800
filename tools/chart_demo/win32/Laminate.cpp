#include "tools/chart_demo/win32/Laminate.h"

namespace
{
struct Row
{
    double megahertz;
    double er;
    double lossTangent;
};

constexpr Row rows[] = {{1, 4.55, 0.0165},     {3, 4.50, 0.0170},     {10, 4.44, 0.0175},
                        {30, 4.38, 0.0180},    {100, 4.32, 0.0185},   {300, 4.26, 0.0190},
                        {1000, 4.20, 0.0198},  {2000, 4.16, 0.0203},  {5000, 4.12, 0.0209},
                        {10000, 4.08, 0.0214}, {15000, 4.06, 0.0217}, {20000, 4.05, 0.0218}};

CChartCurve MakeCurve(double Row::*value, Colour colour, const char* name)
{
    CChartCurve curve;
    for (const Row& row : rows)
    {
        curve.points.push_back({row.megahertz, row.*value});
    }
    curve.colour = colour;
    curve.name = name;
    curve.UpdateBounds();
    return curve;
}
} // namespace

CChartCurve MakeErCurve()
{
    return MakeCurve(&Row::er, 0x4DA6FF, "Er");
}

CChartCurve MakeLossTangentCurve()
{
    return MakeCurve(&Row::lossTangent, 0xFFC066, "Loss Tangent");
}
