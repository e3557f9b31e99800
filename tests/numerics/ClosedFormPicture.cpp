// The picture of docs/numerics.md, written to numerics.svg in the build folder: the loss tangent of the fit
// through 5 and through 20 points beside the truth, from where the points begin to beyond their end.
#include "chart/CSvgCanvas.h"
#include "chart/PaintChart.h"
#include "tests/chart/MakeChart.h"
#include "tests/numerics/ClosedForm.h"

#include <fstream>
#include <functional>
#include <gtest/gtest.h>

namespace
{
constexpr PixelSize size = {900, 420};
constexpr double drawnFrom = 3e5; // Hz
constexpr double drawnTo = 1e11;

CChartCurve Draw(const char* name, Colour colour, const std::function<double(double)>& function)
{
    constexpr int count = 400;
    std::vector<DataPoint> points;
    for (int k = 0; k <= count; ++k)
    {
        const double f = drawnFrom * std::pow(drawnTo / drawnFrom, static_cast<double>(k) / count);
        points.push_back({f / 1e6, function(f)});
    }
    return MakeCurve(std::move(points), colour, name);
}

CChartCurve DrawFit(const char* name, Colour colour, int points)
{
    return Draw(name, colour,
                [model = FitTo(ClosedForm().Sample(points))](double f)
                { return -model.Evaluate(f).imag() / model.Evaluate(f).real(); });
}

TEST(Numerics, Picture)
{
    CChartCurve curves[] = {
        Draw("Closed form", 0xFFFFFF, [](double f) { return ClosedForm().LossTangent(f); }),
        DrawFit("Fit through 20 points", 0x00FF00, 20), DrawFit("Fit through 5 points", 0x00A5FF, 5)};
    CChartModel model;
    model.AddAxis(0, false);
    model.SetAxisTitle(0, "Frequency", "MHz");
    model.ClearAutomaticPrefix(0);
    model.FindAxis(0)->lowerLimit = 1e-9;
    model.AddAxis(1, true);
    model.SetAxisTitle(1, "Loss Tangent", "");
    model.ClearAutomaticPrefix(1);
    for (CChartCurve& curve : curves)
    {
        model.AddCurve(curve, 0, 1);
        model.GetLegend().push_back({curve.colour, curve.name});
    }
    model.SetScaleMode(true, false);
    CSvgCanvas canvas(size, 12);
    const PixelRect client = {0, 0, size.width, size.height};
    LayOutChart(model, client, canvas);
    PaintChart({model, {}, {}, client}, canvas);
    std::ofstream(ML_BINARY_DIR "/numerics.svg") << canvas.GetDocument();
    EXPECT_NE(canvas.GetDocument().find("Fit through 5 points"), std::string::npos);
}
} // namespace
