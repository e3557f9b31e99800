#pragma once

#include "chart/IChartHost.h"
#include "tests/chart/CRasterCanvas.h"
#include "tests/chart/CRecorderCanvas.h"

#include <functional>
#include <string>
#include <utility>
#include <vector>

// A window of a given size, or none, that writes down what it is asked to do. Its clock goes on by what is
// slept and by one millisecond per look at it.
class CFakeHost final : public IChartHost
{
public:
    std::optional<PixelRect> client = PixelRect{0, 0, 500, 300};
    CRecorderCanvas measure;
    std::vector<std::string> log;
    std::vector<PixelLine> feedback;
    CRasterCanvas screen{500, 300}; // what feedback is drawn on
    std::uint32_t now = 0xFFFFFF80; // the clock turns over soon
    std::uint32_t sleeps = 0;
    std::function<void()> onUpdate = [] {};

    std::optional<PixelRect> GetClientArea() override { return client; }
    ITextMeasure* GetTextMeasure() override { return client ? &measure : nullptr; }
    void CaptureMouse() override { log.emplace_back("capture"); }
    void ReleaseMouse() override { log.emplace_back("release"); }
    void SetMouseCursor(ChartCursor cursor) override { lastCursor = cursor; }
    void InvalidateChart(bool erase) override
    {
        log.emplace_back(erase ? "invalidate and erase" : "invalidate");
    }
    void NotifyZoomChanged() override { log.emplace_back("notify"); }
    std::uint32_t GetMilliseconds() override { return now++; }

    void UpdateNow() override
    {
        log.emplace_back("update");
        onUpdate();
    }

    void DrawFeedback(std::span<const PixelLine> lines, Colour colour) override
    {
        feedback.assign(lines.begin(), lines.end());
        screen.DrawXorLines(lines, colour);
    }

    void SleepMilliseconds(std::uint32_t milliseconds) override
    {
        now += milliseconds;
        sleeps += milliseconds;
    }

    std::vector<std::string> TakeLog() { return std::exchange(log, {}); }
    [[nodiscard]] int Count(const std::string& entry) const
    {
        return static_cast<int>(std::ranges::count(log, entry));
    }

    ChartCursor lastCursor = ChartCursor::Arrow;
};
