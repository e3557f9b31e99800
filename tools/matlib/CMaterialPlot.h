#pragma once

#include "chart/CChartModel.h"
#include "tools/matlib/Options.h"

#include <memory>

class CBulkMaterial;
class IMaterial;
struct ChartStyle;

// A chart of materials' properties over frequency, one vertical axis for each kind of property, drawn into a
// picture by the same layout and painter as in a window.
class CMaterialPlot
{
public:
    explicit CMaterialPlot(const Options& options_);

    // Adds each property of the material that is asked for, at that temperature (°C): its rows as markers and
    // its model as a line; a metal's rows are joined. Throws CFailure when the material
    // has no value for any of them.
    void Add(IMaterial& material, double temperature);

    // How many properties were added.
    [[nodiscard]] int GetCurveCount() const { return static_cast<int>(names.size()); }

    // The picture, an SVG document.
    [[nodiscard]] std::string Render();

    // How many of them the legend of the rendered picture has room for.
    [[nodiscard]] int GetNamedCurveCount() const { return namedCurves; }

private:
    // What the legend says of a curve.
    struct PlottedProperty
    {
        MLTABLEKIND property;
        std::string material;
        std::string ending;
    };

    [[nodiscard]] std::vector<MLTABLEKIND> ListProperties(const IMaterial& material) const;
    [[nodiscard]] std::vector<DataPoint> FindRows(const CBulkMaterial& bulk, IMaterial& material,
                                                  MLTABLEKIND property, double temperature) const;
    [[nodiscard]] std::vector<DataPoint> Evaluate(const CBulkMaterial& bulk, const IMaterial& material,
                                                  MLTABLEKIND property, double temperature,
                                                  std::span<const DataPoint> rows) const;
    void AddCurves(PlottedProperty plotted, std::span<const DataPoint> rows, std::vector<DataPoint> line);
    void AddCurve(MLTABLEKIND property, Colour colour, std::int32_t style, std::vector<DataPoint> points);
    void NameInFull();
    void NameBriefly();
    [[nodiscard]] int CountNamedCurves(const ChartStyle& style, PixelSize size, int fontSize);

    const Options& options;
    std::vector<double> frequencies;
    std::vector<PlottedProperty> names;               // one for each entry of the legend
    std::vector<std::unique_ptr<CChartCurve>> curves; // the model refers to them
    CChartModel model;
    int namedCurves = 0;
};
