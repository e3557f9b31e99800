#pragma once

#include "chart/CChart.h"
#include "chooser/MaterialCurves.h"

#include <deque>
#include <string>
#include <vector>

// What the chooser's chart shows: the curves of one material at one temperature, and of others that the user
// keeps to compare them with, over a linear or a logarithmic frequency. It knows no window.
class CMaterialChart
{
public:
    static constexpr std::size_t mostKept = 4;

    explicit CMaterialChart(int materialKind) : kind(materialKind) {}
    CMaterialChart(const CMaterialChart&) = delete;
    CMaterialChart& operator=(const CMaterialChart&) = delete;
    ~CMaterialChart() = default;

    // Gives a new chart its axes.
    void SetUpAxes(CChartModel& model) const;

    // The material to show; `name` tells it from kept ones. Of no material the curves are empty. No chart
    // shows the former curves any longer.
    void SetCurves(MaterialCurves newCurves, std::string name);

    // The frequencies in hertz on a logarithmic axis, instead of megahertz on a linear one.
    void SetLogarithmic(bool newLogarithmic) { logarithmic = newLogarithmic; }
    [[nodiscard]] bool IsLogarithmic() const { return logarithmic; }

    // Keeps the shown curves, thinner and in colours of their own. Not without curves, not twice, and not
    // when there are mostKept.
    [[nodiscard]] bool CanKeep() const;
    void Keep();
    [[nodiscard]] bool HasKept() const { return !kept.empty(); }
    // No chart shows them any longer.
    void Forget() { kept.clear(); }

    // Puts curves, legend and scale into the chart; its view is all of the data. To be laid out afterwards.
    void Show(CChart& chart);

    [[nodiscard]] bool HasRows() const { return HasKept() || HasShownRows(); }

    // The rows of all curves with tabs between the columns, each row and the titles on a line: in the order
    // of the frequencies, with a blank cell where a curve has no row. Empty without curves.
    [[nodiscard]] std::string FormatValues() const;

private:
    struct KeptMaterial
    {
        std::string name;
        MaterialCurves curves;
    };
    // One of the two curves that materials of the kind have.
    struct CurveSlot
    {
        std::size_t index; // of MaterialCurves
        std::int32_t verticalAxis;
    };

    [[nodiscard]] std::array<CurveSlot, 2> GetSlots() const;
    [[nodiscard]] bool HasShownRows() const;
    void SetUpFrequencies(CChartModel& model) const;
    void AddCurves(CChart& chart, MaterialCurves& curves, std::vector<std::int64_t>& added, bool always);
    [[nodiscard]] CChartCurve& ToHertz(const CChartCurve& curve);

    int kind;
    bool logarithmic = false;
    MaterialCurves shown;
    std::string shownName;
    std::vector<KeptMaterial> kept;
    std::deque<CChartCurve> inHertz; // what a logarithmic chart shows instead
};
