#include "bench/chart/PlotLibraries.h"

#include <QImage>
#include <QPainter>
#include <qcustomplot.h>

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

class CCustomPlot final : public IPlotLibrary
{
public:
    CCustomPlot(const std::vector<PlotCurve>& curves, int width, int height)
        : image(width, height, QImage::Format_RGB32)
    {
        plot.setBackground(QBrush(Qt::black));
        plot.xAxis->setLabel("Frequency");
        plot.yAxis2->setVisible(true);
        plot.legend->setVisible(true);
        plot.legend->setBrush(QBrush(Qt::black));
        plot.legend->setTextColor(Qt::white);
        for (QCPAxis* const axis : {plot.xAxis, plot.yAxis, plot.yAxis2})
        {
            axis->setBasePen(QPen(Qt::white));
            axis->setTickPen(QPen(Qt::white));
            axis->setTickLabelColor(Qt::white);
            axis->setLabelColor(Qt::white);
            axis->grid()->setPen(QPen(Qt::gray, 0));
        }
        for (std::size_t i = 0; i < curves.size(); ++i)
        {
            QCPAxis* const axis = i == 0 ? plot.yAxis : plot.yAxis2;
            axis->setLabel(curves[i].name.c_str());
            QCPGraph* const graph = plot.addGraph(plot.xAxis, axis);
            graph->setName(curves[i].name.c_str());
            graph->setPen(QPen(GetColour(curves[i].colour), 0));
            graph->setData(GetVector(curves[i].x), GetVector(curves[i].y), true);
            graph->rescaleKeyAxis();
            graph->rescaleValueAxis();
        }
    }

    void Paint() override
    {
        QCPPainter painter(&image);
        plot.toPainter(&painter, image.width(), image.height());
    }

    void WriteFile(const std::string& path) override { image.save(path.c_str()); }

private:
    QCustomPlot plot;
    QImage image;
};
} // namespace

std::unique_ptr<IPlotLibrary> MakeCustomPlot(const std::vector<PlotCurve>& curves, int width, int height)
{
    return std::make_unique<CCustomPlot>(curves, width, height);
}
