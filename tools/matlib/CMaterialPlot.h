#pragma once

#include "chart/CChartModel.h"
#include "tools/matlib/Options.h"

#include <memory>

class IMaterial;

// A chart of materials' properties over frequency, one vertical axis for each kind of property, drawn into a
// picture by the same layout and painter as in a window.
class CMaterialPlot
{
public:
    explicit CMaterialPlot(const Options& options_);

    // Adds one curve for each property of the material that is asked for, at that temperature (°C). Throws
    // CFailure when the material has no value for any of them.
    void Add(IMaterial& material, double temperature);

    [[nodiscard]] int GetCurveCount() const { return static_cast<int>(curves.size()); }

    // The picture, an SVG document.
    [[nodiscard]] std::string Render();

private:
    [[nodiscard]] std::vector<MLTABLEKIND> ListProperties(const IMaterial& material) const;
    void AddCurve(std::unique_ptr<CChartCurve> curve, MLTABLEKIND property);

    const Options& options;
    std::vector<double> frequencies;
    std::vector<std::unique_ptr<CChartCurve>> curves; // the model refers to them
    CChartModel model;
};
