// A chart of two curves of measured points in a picture of 760 x 240 pixels: laid out and painted into
// nothing, into an image by cairo, by the cairo calls alone, and by plotting libraries.

#include "bench/RatioTable.h"
#include "bench/chart/CCairoCanvas.h"
#include "bench/chart/PlotLibraries.h"
#include "chart/CAxisMapping.h"
#include "chart/PaintChart.h"

#include <QApplication>
#include <cmath>
#include <cstdlib>
#include <random>

namespace
{
constexpr PixelSize pictureSize = {760, 240};
constexpr PixelRect client = {0, 0, pictureSize.width, pictureSize.height};

class CNullCanvas final : public ICanvas
{
public:
    PixelSize GetTextExtent(std::string_view text) override
    {
        return {static_cast<int>(text.size()) * 6, 14};
    }
    void FillRectangle(const PixelRect& rect, Colour) override { benchmark::DoNotOptimize(rect); }
    void DrawPolyline(const Pen&, std::span<const PixelPoint> points) override
    {
        benchmark::DoNotOptimize(points);
    }
    void WriteText(PixelPoint, std::string_view text, Colour, std::optional<Colour>) override
    {
        benchmark::DoNotOptimize(text);
    }
    void Clip(const PixelRect& area) override { benchmark::DoNotOptimize(area); }
    void Unclip() override {}
    void DrawXorLines(std::span<const PixelLine> lines, Colour) override { benchmark::DoNotOptimize(lines); }
};

// A laminate's permittivity and loss tangent with the noise of a measurement.
std::vector<CChartCurve> MakeCurves(int points)
{
    std::vector<CChartCurve> curves(2);
    curves[0].name = "Er";
    curves[0].colour = 0x0000FF;
    curves[1].name = "Loss Tangent";
    curves[1].colour = 0x00FFFF;
    std::mt19937 random(1);
    std::normal_distribution<double> noise;
    for (int i = 0; i < points; ++i)
    {
        const double frequency = 1.0 + 9'999.0 * i / points;
        const double decades = std::log10(frequency);
        curves[0].points.push_back({frequency, 4.62 - 0.09 * decades + 0.003 * noise(random)});
        curves[1].points.push_back({frequency, 0.0128 + 0.0013 * decades + 0.0001 * noise(random)});
    }
    for (CChartCurve& curve : curves)
    {
        curve.UpdateBounds();
    }
    return curves;
}

class CScene
{
public:
    explicit CScene(int points) : curves(MakeCurves(points))
    {
        model.AddAxis(0, false);
        model.AddAxis(1, true);
        model.AddAxis(2, true);
        model.SetAxisTitle(0, "Frequency", "MHz");
        for (std::int32_t axis = 0; axis <= 2; ++axis)
        {
            model.ClearAutomaticPrefix(axis);
        }
        for (std::int32_t i = 0; i < 2; ++i)
        {
            CChartCurve& curve = curves[static_cast<std::size_t>(i)];
            model.SetAxisTitle(i + 1, curve.name, "");
            model.AddCurve(curve, 0, i + 1);
            model.GetLegend().push_back({curve.colour, curve.name});
        }
        model.SetScaleMode(false, false);
    }

    void Paint(ICanvas& canvas)
    {
        LayOutChart(model, client, canvas);
        PaintChart({model, style, pointer, client}, canvas);
    }

    // All segments of the curves, unreduced, in pixels.
    [[nodiscard]] std::vector<std::vector<PixelPoint>> GetPixels() const
    {
        std::vector<std::vector<PixelPoint>> pixels;
        for (std::size_t i = 0; i < curves.size(); ++i)
        {
            const CAxisMapping horizontal(model, Direction::Horizontal,
                                          model.GetAxis(Direction::Horizontal, 0));
            const CAxisMapping vertical(model, Direction::Vertical,
                                        model.GetAxis(Direction::Vertical, static_cast<std::int64_t>(i)));
            std::vector<PixelPoint>& line = pixels.emplace_back();
            for (const DataPoint& point : curves[i].points)
            {
                line.push_back({horizontal.GetPixel(point.x), vertical.GetPixel(point.y)});
            }
        }
        return pixels;
    }

    [[nodiscard]] const std::vector<CChartCurve>& GetCurves() const { return curves; }
    [[nodiscard]] const CChartModel& GetModel() const { return model; }

private:
    std::vector<CChartCurve> curves;
    CChartModel model;
    ChartStyle style;
    ChartPointer pointer;
};

void PaintIntoNothing(benchmark::State& state)
{
    CScene scene(static_cast<int>(state.range(0)));
    CNullCanvas canvas;
    for (auto _ : state)
    {
        scene.Paint(canvas);
    }
}

void PaintByCairo(benchmark::State& state)
{
    CScene scene(static_cast<int>(state.range(0)));
    CCairoCanvas canvas(pictureSize);
    for (auto _ : state)
    {
        scene.Paint(canvas);
    }
}

// What the painter asks a canvas for, kept to be drawn again without it.
class CKeepingCanvas final : public ICanvas
{
public:
    CKeepingCanvas(CCairoCanvas& canvas_, const std::vector<CChartCurve>& curves_)
        : canvas(canvas_), curves(curves_)
    {
    }

    PixelSize GetTextExtent(std::string_view text) override { return canvas.GetTextExtent(text); }
    void FillRectangle(const PixelRect& rect, Colour colour) override { fills.emplace_back(rect, colour); }
    void DrawPolyline(const Pen& pen, std::span<const PixelPoint> points) override
    {
        const auto isCurve = [&pen](const CChartCurve& curve) { return curve.colour == pen.colour; };
        if (std::ranges::none_of(curves, isCurve))
        {
            lines.emplace_back(PixelLine{points.front(), points.back()}, pen.colour);
        }
    }
    void WriteText(PixelPoint topLeft, std::string_view text, Colour, std::optional<Colour>) override
    {
        texts.emplace_back(topLeft, std::string(text));
    }
    void Clip(const PixelRect&) override {}
    void Unclip() override {}
    void DrawXorLines(std::span<const PixelLine>, Colour) override {}

    std::vector<std::pair<PixelRect, Colour>> fills;
    std::vector<std::pair<PixelLine, Colour>> lines;
    std::vector<std::pair<PixelPoint, std::string>> texts;

private:
    CCairoCanvas& canvas;
    const std::vector<CChartCurve>& curves;
};

void SetSource(cairo_t* cairo, Colour colour)
{
    cairo_set_source_rgb(cairo, (colour & 0xFF) / 255.0, (colour >> 8 & 0xFF) / 255.0,
                         (colour >> 16 & 0xFF) / 255.0);
}

// The same picture, everything known beforehand, with every segment of the curves and lines of one colour
// stroked together: what is left is cairo's work.
void CallCairo(benchmark::State& state)
{
    CScene scene(static_cast<int>(state.range(0)));
    CCairoCanvas canvas(pictureSize);
    CKeepingCanvas kept(canvas, scene.GetCurves());
    scene.Paint(kept);
    std::ranges::stable_sort(kept.lines, {}, [](const auto& line) { return line.second; });
    const std::vector<std::vector<PixelPoint>> curves = scene.GetPixels();
    cairo_t* const cairo = canvas.GetContext();
    cairo_set_line_width(cairo, 1.0);
    for (auto _ : state)
    {
        for (const auto& [rect, colour] : kept.fills)
        {
            SetSource(cairo, colour);
            cairo_rectangle(cairo, rect.left, rect.top, rect.GetWidth(), rect.GetHeight());
            cairo_fill(cairo);
        }
        for (std::size_t i = 0; i < kept.lines.size(); ++i)
        {
            const auto& [line, colour] = kept.lines[i];
            cairo_move_to(cairo, line.from.x + 0.5, line.from.y + 0.5);
            cairo_line_to(cairo, line.to.x + 0.5, line.to.y + 0.5);
            if (i + 1 == kept.lines.size() || kept.lines[i + 1].second != colour)
            {
                SetSource(cairo, colour);
                cairo_stroke(cairo);
            }
        }
        SetSource(cairo, 0xFFFFFF);
        for (const auto& [at, text] : kept.texts)
        {
            cairo_move_to(cairo, at.x, at.y + 11);
            cairo_show_text(cairo, text.c_str());
        }
        cairo_new_path(cairo);
        for (std::size_t i = 0; i < curves.size(); ++i)
        {
            SetSource(cairo, scene.GetCurves()[i].colour);
            for (const PixelPoint& point : curves[i])
            {
                cairo_line_to(cairo, point.x + 0.5, point.y + 0.5);
            }
            cairo_stroke(cairo);
        }
    }
}

using LibraryMaker = std::unique_ptr<IPlotLibrary> (*)(const std::vector<PlotCurve>&, int, int);

std::unique_ptr<IPlotLibrary> MakeLibrary(LibraryMaker make, const std::vector<CChartCurve>& curves)
{
    std::vector<PlotCurve> plotCurves;
    for (const CChartCurve& curve : curves)
    {
        PlotCurve& plotCurve = plotCurves.emplace_back();
        plotCurve.name = curve.name;
        plotCurve.colour = curve.colour;
        for (const DataPoint& point : curve.points)
        {
            plotCurve.x.push_back(point.x);
            plotCurve.y.push_back(point.y);
        }
    }
    return make(plotCurves, pictureSize.width, pictureSize.height);
}

void PaintByLibrary(benchmark::State& state, LibraryMaker make)
{
    const std::unique_ptr<IPlotLibrary> library =
        MakeLibrary(make, MakeCurves(static_cast<int>(state.range(0))));
    for (auto _ : state)
    {
        library->Paint();
    }
}

BENCHMARK(PaintIntoNothing)->Arg(100)->Arg(10'000)->Arg(1'000'000)->Unit(benchmark::kMicrosecond);
BENCHMARK(PaintByCairo)->Arg(100)->Arg(10'000)->Arg(1'000'000)->Unit(benchmark::kMicrosecond);
BENCHMARK(CallCairo)->Arg(100)->Arg(10'000)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(PaintByLibrary, Qwt, MakeQwtPlot)->Arg(100)->Arg(10'000)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(PaintByLibrary, QCustomPlot, MakeCustomPlot)
    ->Arg(100)
    ->Arg(10'000)
    ->Unit(benchmark::kMicrosecond);

// So that one can see that all of them draw the same thing.
void WritePictures(const std::string& folder)
{
    CScene scene(10'000);
    CCairoCanvas canvas(pictureSize);
    scene.Paint(canvas);
    canvas.WriteFile((folder + "/chart.png").c_str());
    const std::pair<const char*, LibraryMaker> libraries[] = {{"/qwt.png", MakeQwtPlot},
                                                              {"/qcustomplot.png", MakeCustomPlot}};
    for (const auto& [file, make] : libraries)
    {
        const std::unique_ptr<IPlotLibrary> library = MakeLibrary(make, scene.GetCurves());
        library->Paint();
        library->WriteFile(folder + file);
    }
}
} // namespace

int main(int argc, char** argv)
{
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    const QApplication application(argc, argv);
    if (const char* const folder = std::getenv("ML_CHART_PICTURES"))
    {
        WritePictures(folder);
    }
    if (!InitializeInterleaved(argc, argv, {"--benchmark_repetitions=11", "--benchmark_min_time=0.1"}))
    {
        return 1;
    }
    RatioTable table;
    benchmark::RunSpecifiedBenchmarks(&table);
    std::printf("\n");
    for (const std::string points : {"100", "10000"})
    {
        const std::string ours = "PaintByCairo/" + points;
        table.PrintRatio("two curves of " + points + " points: cairo calls alone", ours,
                         "CallCairo/" + points);
        table.PrintRatio("two curves of " + points + " points: Qwt", ours, "PaintByLibrary/Qwt/" + points);
        table.PrintRatio("two curves of " + points + " points: QCustomPlot", ours,
                         "PaintByLibrary/QCustomPlot/" + points);
    }
    std::printf("layout and painting without drawing: %.0f us of 100 points, %.0f us of 10,000, %.1f ms of a "
                "million\n",
                table.GetSeconds("PaintIntoNothing/100") * 1e6,
                table.GetSeconds("PaintIntoNothing/10000") * 1e6,
                table.GetSeconds("PaintIntoNothing/1000000") * 1e3);
    return 0;
}
