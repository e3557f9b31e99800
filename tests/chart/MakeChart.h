#pragma once

#include "chart/CAxisMapping.h"
#include "chart/CChartModel.h"

#include <cmath>
#include <string>
#include <utility>
#include <vector>

// Made-up curves and charts.

inline CChartCurve MakeCurve(std::vector<DataPoint> points, Colour colour = 0x0000FF,
                             std::string name = "curve")
{
    CChartCurve curve;
    curve.points = std::move(points);
    curve.colour = colour;
    curve.name = std::move(name);
    curve.UpdateBounds();
    return curve;
}

// Where a value of the first axes of both directions is drawn.
inline PixelPoint GetPixelOf(const CChartModel& model, DataPoint value)
{
    return {
        CAxisMapping(model, Direction::Horizontal, model.GetAxis(Direction::Horizontal, 0)).GetPixel(value.x),
        CAxisMapping(model, Direction::Vertical, model.GetAxis(Direction::Vertical, 0)).GetPixel(value.y)};
}

// A laminate from 1 MHz to 10 GHz: permittivity, loss tangent, and something with other numbers.
struct LaminateCurves
{
    std::vector<CChartCurve> curves;

    LaminateCurves()
    {
        curves.push_back(MakeCurve({}, 0x0000FF, "Er"));
        curves.push_back(MakeCurve({}, 0x00FFFF, "Loss Tangent"));
        curves.push_back(MakeCurve({}, 0xFFFF00, "Rough Factor"));
        for (int i = 0; i <= 24; ++i)
        {
            const double decades = i / 6.0;
            const double frequency = std::pow(10.0, decades);
            curves[0].points.push_back({frequency, 4.62 - 0.09 * decades});
            curves[1].points.push_back({frequency, 0.0128 + 0.0021 * decades - 0.0002 * decades * decades});
            curves[2].points.push_back({frequency, 1.0 + 0.8 * std::atan(frequency / 3000.0)});
        }
        for (CChartCurve& curve : curves)
        {
            curve.UpdateBounds();
        }
    }

    // Gives the model so many vertical axes, each with its curve and its legend entry.
    void AddTo(CChartModel& model, std::size_t verticalAxes, bool logarithmic)
    {
        model.AddAxis(0, false);
        model.SetAxisTitle(0, "Frequency", "MHz");
        model.ClearAutomaticPrefix(0);
        model.FindAxis(0)->lowerLimit = 1e-9;
        for (std::size_t i = 0; i < verticalAxes; ++i)
        {
            const auto identifier = static_cast<std::int32_t>(i + 1);
            model.AddAxis(identifier, true);
            model.SetAxisTitle(identifier, curves[i].name, "");
            model.ClearAutomaticPrefix(identifier);
            model.AddCurve(curves[i], 0, identifier);
            model.GetLegend().push_back({curves[i].colour, curves[i].name});
        }
        model.SetScaleMode(logarithmic, false);
    }
};
