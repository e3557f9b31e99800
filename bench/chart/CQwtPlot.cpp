#include "bench/chart/PlotLibraries.h"

#include <QImage>
#include <QPainter>
#include <qwt_legend.h>
#include <qwt_plot.h>
#include <qwt_plot_canvas.h>
#include <qwt_plot_curve.h>
#include <qwt_plot_grid.h>
#include <qwt_plot_renderer.h>

namespace
{
QColor GetColour(std::uint32_t colour)
{
    return {static_cast<int>(colour & 0xFF), static_cast<int>((colour >> 8) & 0xFF),
            static_cast<int>((colour >> 16) & 0xFF)};
}

QVector<double> GetVector(const std::vector<double>& values)
{
    return {values.begin(), values.end()};
}

class CQwtPlot final : public IPlotLibrary
{
public:
    CQwtPlot(const std::vector<PlotCurve>& curves, int width, int height)
        : image(width, height, QImage::Format_RGB32)
    {
        plot.resize(width, height);
        plot.setCanvasBackground(Qt::black);
        plot.setStyleSheet("background: black; color: white");
        plot.insertLegend(new QwtLegend, QwtPlot::BottomLegend); // the plot owns its parts
        plot.setAxisTitle(QwtPlot::xBottom, "Frequency");
        plot.enableAxis(QwtPlot::yRight);
        auto* const grid = new QwtPlotGrid;
        grid->setPen(Qt::gray, 0.0);
        grid->attach(&plot);
        for (std::size_t i = 0; i < curves.size(); ++i)
        {
            const QwtPlot::Axis axis = i == 0 ? QwtPlot::yLeft : QwtPlot::yRight;
            plot.setAxisTitle(axis, curves[i].name.c_str());
            auto* const curve = new QwtPlotCurve(curves[i].name.c_str());
            curve->setPen(GetColour(curves[i].colour), 0.0);
            curve->setPaintAttribute(QwtPlotCurve::FilterPoints, true);
            curve->setSamples(GetVector(curves[i].x), GetVector(curves[i].y));
            curve->setYAxis(axis);
            curve->attach(&plot);
        }
        plot.replot();
    }

    void Paint() override
    {
        QPainter painter(&image);
        renderer.render(&plot, &painter, image.rect());
    }

    void WriteFile(const std::string& path) override { image.save(path.c_str()); }

private:
    QwtPlot plot;
    QwtPlotRenderer renderer;
    QImage image;
};

} // namespace

std::unique_ptr<IPlotLibrary> MakeQwtPlot(const std::vector<PlotCurve>& curves, int width, int height)
{
    return std::make_unique<CQwtPlot>(curves, width, height);
}
