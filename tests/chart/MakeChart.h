#pragma once

#include "chart/CAxisMapping.h"
#include "chart/CChart.h"
#include "tests/chart/CRecorderCanvas.h"

#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <limits>

// Made-up curves and charts.

inline constexpr double noNumber = std::numeric_limits<double>::quiet_NaN();
inline constexpr double infinity = std::numeric_limits<double>::infinity();

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

// With the horizontal axis 0, the vertical axis 1 and so many vertical ones more.
inline CChartModel MakeModel(std::int32_t moreAxes = 0)
{
    CChartModel model;
    model.AddAxis(0, false);
    for (std::int32_t identifier = 1; identifier <= 1 + moreAxes; ++identifier)
    {
        model.AddAxis(identifier, true);
    }
    return model;
}

// Where a value of the first axes of both directions is drawn.
inline PixelPoint GetPixelOf(const CChartModel& model, DataPoint value)
{
    const CurveAxes axes = {&model.GetAxis(Direction::Horizontal, 0), &model.GetAxis(Direction::Vertical, 0)};
    return CurveMapping(model, axes).GetPixel(value);
}

// A window of 500 x 300 pixels.
class CFakeHost final : public IChartHost
{
public:
    CRecorderCanvas canvas;
    CChart chart{*this};
    int invalidations = 0;

    void RecomputeLayout() override { LayOutChart(chart.GetModel(), {0, 0, 500, 300}, canvas); }
    void Invalidate() override { ++invalidations; }
};

// A laminate from 1 MHz to 10 GHz: permittivity, loss tangent, and something with other numbers.
struct LaminateCurves
{
    std::vector<CChartCurve> curves;

    LaminateCurves()
    {
        std::vector<DataPoint> er;
        std::vector<DataPoint> lossTangent;
        std::vector<DataPoint> roughFactor;
        for (int i = 0; i <= 24; ++i)
        {
            const double decades = i / 6.0;
            const double frequency = std::pow(10.0, decades);
            er.push_back({frequency, 4.62 - 0.09 * decades});
            lossTangent.push_back({frequency, 0.0128 + 0.0021 * decades - 0.0002 * decades * decades});
            roughFactor.push_back({frequency, 1.0 + 0.8 * std::atan(frequency / 3000.0)});
        }
        curves.push_back(MakeCurve(er, 0x0000FF, "Er"));
        curves.push_back(MakeCurve(lossTangent, 0x00FFFF, "Loss Tangent"));
        curves.push_back(MakeCurve(roughFactor, 0xFFFF00, "Rough Factor"));
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
            const std::int64_t index = model.AddCurve(curves[i], 0, identifier);
            model.GetLegend().push_back({curves[i].colour, curves[i].name, {index}});
        }
        model.SetScaleMode(logarithmic, false);
    }
};

// A text that is compared with a file of this folder, which ML_WRITE_REFERENCE=1 writes anew.
inline void ExpectRecorded(const std::string& name, const std::string& text)
{
    const std::string path = ML_SOURCE_DIR "/tests/chart/" + name;
    if (std::getenv("ML_WRITE_REFERENCE") != nullptr)
    {
        std::ofstream(path, std::ios::binary) << text;
    }
    std::ifstream file(path, std::ios::binary);
    EXPECT_EQ(text, std::string(std::istreambuf_iterator<char>(file), {}));
}
