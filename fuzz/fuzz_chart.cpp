// Charts of any numbers in windows of any size, driven by any mouse: layout, painting and interaction must
// come to an end without undefined behaviour, ranges must stay drawable, and what is painted must stay near
// the window.

#include "chart/CChartControlWrapper.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

namespace
{
void Require(bool condition)
{
    if (!condition)
    {
        std::abort();
    }
}

// Where the bytes end, zeros are taken.
class CBytes
{
public:
    CBytes(const std::uint8_t* bytes_, std::size_t count_) : bytes(bytes_), count(count_) {}

    [[nodiscard]] bool AtEnd() const { return count == 0; }

    template <typename Value>
    Value Take()
    {
        Value value{};
        const std::size_t taken = std::min(count, sizeof value);
        if (taken > 0)
        {
            std::memcpy(&value, bytes, taken);
        }
        bytes += taken;
        count -= taken;
        return value;
    }

    int TakeBelow(int limit) { return Take<std::uint8_t>() % limit; }

    // Any double, or one of the size that charts usually have.
    double TakeNumber()
    {
        return TakeBelow(2) == 0 ? Take<double>() : static_cast<double>(Take<std::int32_t>()) / 1024.0;
    }

    PixelPoint TakePoint()
    {
        if (TakeBelow(16) == 0)
        {
            const auto x = Take<std::int32_t>();
            return {x, Take<std::int32_t>()};
        }
        const auto x = Take<std::int16_t>();
        return {x % 200, Take<std::int16_t>() % 150}; // small windows: labels take the time
    }

private:
    const std::uint8_t* bytes;
    std::size_t count;
};

class CCheckingCanvas final : public ICanvas
{
public:
    PixelSize GetTextExtent(std::string_view text) override
    {
        return {static_cast<int>(text.size()) * 6, height};
    }
    void FillRectangle(const PixelRect& rect, Colour) override
    {
        Check({{rect.left, rect.top}, {rect.right, rect.bottom}});
    }
    void DrawPolyline(const Pen&, std::span<const PixelPoint> points) override
    {
        Require(points.size() > 1);
        for (const PixelPoint& point : points)
        {
            Check({point, point});
        }
    }
    void WriteText(PixelPoint topLeft, std::string_view, Colour, std::optional<Colour>) override
    {
        Check({topLeft, topLeft});
    }
    void Clip(const PixelRect& area) override { Check({{area.left, area.top}, {area.right, area.bottom}}); }
    void Unclip() override {}
    void DrawXorLines(std::span<const PixelLine> lines, Colour) override
    {
        for (const PixelLine& line : lines)
        {
            Check(line);
        }
    }

    int height = 12;

private:
    static void Check(const PixelLine& line)
    {
        for (const int coordinate : {line.from.x, line.from.y, line.to.x, line.to.y})
        {
            Require(std::abs(coordinate) <= 4 * farthestPixel);
        }
    }
};

class CHost final : public IChartHost
{
public:
    PixelRect client;
    CCheckingCanvas canvas;
    CChart chart{*this};

    void RecomputeLayout() override { LayOutChart(chart.GetModel(), client, canvas); }
    void Invalidate() override {}
    void Paint() { chart.Paint(client, canvas); }

    void Apply(const ChartResponse& response)
    {
        canvas.DrawXorLines(response.feedback.Get(), feedbackColour);
        for (std::uint32_t elapsed = 0; response.animates; elapsed += 200)
        {
            const AnimationStep step = chart.GetInteraction().Animate(elapsed);
            if (step == AnimationStep::Ended)
            {
                break;
            }
            if (step == AnimationStep::Show)
            {
                Paint();
            }
        }
        if (response.ranges == RangeChange::Zoomed)
        {
            RecomputeLayout();
        }
    }
};

class CSession
{
public:
    explicit CSession(CBytes& bytes_) : bytes(bytes_) {}

    void Run()
    {
        BuildChart();
        for (int steps = 0; !bytes.AtEnd() && steps < 8; ++steps)
        {
            Step();
        }
        host.Paint();
    }

private:
    void BuildChart()
    {
        CChartModel& model = chart.GetModel();
        const int axes = bytes.TakeBelow(3);
        for (std::int32_t i = 0; i < axes; ++i)
        {
            model.AddAxis(i + 2, bytes.TakeBelow(4) != 0);
            model.SetAxisTitle(i + 2, std::string(static_cast<std::size_t>(bytes.TakeBelow(40)), 't'),
                               "unit");
        }
        const int limits = bytes.TakeBelow(4);
        model.ForEachAxis(
            [this, limits](CAxis& axis, const IScale&, Direction)
            {
                axis.lowerLimit = limits == 0 ? axis.lowerLimit : limits == 1 ? 1e-12 : bytes.TakeNumber();
                axis.automaticPrefix = limits != 1;
            });
        curves.resize(static_cast<std::size_t>(bytes.TakeBelow(4)));
        for (CChartCurve& curve : curves)
        {
            FillCurve(curve);
            chart.AddCurve(curve, 0, bytes.TakeBelow(4));
            model.GetLegend().push_back({curve.colour, curve.name});
        }
        chart.GetStyle().flags = bytes.TakeBelow(4);
        SetScaleMode();
    }

    void FillCurve(CChartCurve& curve)
    {
        const int points = bytes.TakeBelow(32);
        for (int i = 0; i < points; ++i)
        {
            const double x = bytes.TakeNumber();
            curve.points.push_back({x, bytes.TakeNumber()});
        }
        curve.colour = static_cast<Colour>(1 + bytes.TakeBelow(3));
        curve.lineStyle = bytes.TakeBelow(7) - 1;
        curve.markerShape = bytes.TakeBelow(2);
        curve.name.assign(static_cast<std::size_t>(bytes.TakeBelow(50)), 'n');
        curve.UpdateBounds();
    }

    void SetScaleMode()
    {
        const int mode = bytes.TakeBelow(4);
        chart.GetModel().SetScaleMode((mode & 1) != 0, (mode & 2) != 0);
        Resize();
    }

    void Resize()
    {
        const PixelPoint corner = bytes.TakePoint();
        host.client = {0, 0, std::clamp(corner.x, 0, 1'500), std::clamp(corner.y, 0, 800)};
        host.canvas.height = 1 + bytes.TakeBelow(40);
        host.RecomputeLayout();
        mouse.ForgetMouse();
        CheckRanges();
    }

    void CheckRanges()
    {
        chart.GetModel().ForEachAxis(
            [](const CAxis& axis, const IScale&, Direction)
            {
                Require(std::isfinite(axis.visibleMin) && std::isfinite(axis.visibleMax));
                Require(axis.visibleMin < axis.visibleMax && axis.tickStep > 0.0);
                Require(axis.scale > 0.0 && std::isfinite(axis.scale));
            });
    }

    void Step()
    {
        switch (bytes.TakeBelow(10))
        {
        case 0:
            host.Apply(mouse.OnButtonDown(bytes.TakePoint()));
            break;
        case 1:
        case 2:
        case 3:
            host.Apply(mouse.OnMove(bytes.TakePoint()));
            break;
        case 4:
            host.Apply(mouse.OnButtonUp(bytes.TakePoint()));
            break;
        case 5:
            chart.GetModel().ResetRanges();
            host.RecomputeLayout();
            CheckRanges();
            break;
        case 6:
            host.Apply(mouse.SetMode(bytes.TakeBelow(10) - 1));
            break;
        case 7:
            Resize();
            break;
        case 8:
            SetRequestedRange();
            break;
        default:
            ChangeCurves();
            break;
        }
    }

    void SetRequestedRange()
    {
        CChartControlWrapper wrapper(&chart);
        const double x = bytes.TakeNumber();
        const double y = bytes.TakeNumber();
        const double width = bytes.TakeNumber();
        wrapper.SetRequestedRange({x, y}, {x + width, y + bytes.TakeNumber()});
        CheckRanges();
        DataPoint low;
        DataPoint high;
        wrapper.GetAxisRange(low, high);
    }

    void ChangeCurves()
    {
        if (bytes.TakeBelow(2) == 0)
        {
            SetScaleMode();
            return;
        }
        chart.RemoveCurves();
        for (CChartCurve& curve : curves)
        {
            chart.AddCurve(curve, 0, 1);
        }
        chart.RecomputeLayout();
        CheckRanges();
    }

    CBytes& bytes;
    CHost host;
    std::vector<CChartCurve> curves;
    CChart& chart = host.chart;
    CChartInteraction& mouse = chart.GetInteraction();
};
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    CBytes bytes(data, size);
    CSession(bytes).Run();
    return 0;
}
