#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

// Plain enough for the libraries' C++17.
struct PlotCurve
{
    std::string name;
    std::uint32_t colour = 0; // 0x00BBGGRR
    std::vector<double> x;
    std::vector<double> y;
};

// A chart of two curves, each with a vertical axis of its own, in a well-known plotting library: white on
// black, with grid lines, axis titles and a legend. Paint lays out and draws into an image of the same size
// every time.
class IPlotLibrary
{
public:
    virtual void Paint() = 0;
    virtual void WriteFile(const std::string& path) = 0;
    virtual ~IPlotLibrary() = default;
};

// There has to be a QApplication.
[[nodiscard]] std::unique_ptr<IPlotLibrary> MakeQwtPlot(const std::vector<PlotCurve>& curves, int width,
                                                        int height);
[[nodiscard]] std::unique_ptr<IPlotLibrary> MakeCustomPlot(const std::vector<PlotCurve>& curves, int width,
                                                           int height);
