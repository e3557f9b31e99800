#include "chart/ChartTexts.h"
#include "chooser/CMaterialChart.h"
#include "tests/chooser/MakeLibrary.h"

#include <gmock/gmock.h>

namespace
{
TEST(MaterialCurves, ShowTheTablesOfTheTemperatureOverMegahertz)
{
    CFakeMaterialLib library;
    CMaterial& laminate = AddMaterial(library, MLMATERIAL_DIELECTRIC, "laminate");
    AddTable(laminate, MLTABLE_ER, 25.0, {4.5, 4.0, 4.25});
    AddTable(laminate, MLTABLE_ER, 85.0, {5.0});
    AddTable(laminate, MLTABLE_LOSS_TANGENT, 25.0, {});
    MaterialCurves curves;
    BuildMaterialCurves(curves, &laminate, 25.0);
    ASSERT_EQ(curves[0].points.size(), 3U);
    EXPECT_EQ(curves[0].GetPoint(2).x, 3000.0);
    EXPECT_EQ(curves[0].GetPoint(2).y, 4.25);
    EXPECT_EQ(curves[0].bounds.yMin, 4.0);
    EXPECT_EQ(curves[0].name, "Er");
    EXPECT_EQ(curves[0].colour, 0x0000FFU);
    EXPECT_TRUE(curves[1].points.empty());
    EXPECT_TRUE(curves[2].points.empty());

    BuildMaterialCurves(curves, &laminate, 85.0);
    EXPECT_TRUE(curves[0].points.empty()) << "a single value is no curve";

    CMaterial& foil = AddMaterial(library, MLMATERIAL_METAL, "foil");
    AddTable(foil, MLTABLE_ROUGHNESS_BOTTOM, 25.0, {1.0, 2.0});
    BuildMaterialCurves(curves, &foil, 0.0);
    EXPECT_EQ(curves[3].points.size(), 2U);
    EXPECT_EQ(curves[3].name, "Bottom Roughness Factor");
    BuildMaterialCurves(curves, nullptr, 0.0);
    EXPECT_TRUE(curves[3].points.empty());
}

class CNoWindow final : public IChartHost
{
public:
    void RecomputeLayout() override {}
    void Invalidate() override {}
};

class MaterialChart : public testing::Test
{
protected:
    CNoWindow host;
    CChart chart{host};
    CChartModel& model = chart.GetModel();
    CMaterialChart content{MLMATERIAL_DIELECTRIC};

    MaterialChart() { content.SetUpAxes(model); }

    void Choose(const std::string& name, std::vector<DataPoint> er, std::vector<DataPoint> lossTangent)
    {
        MaterialCurves curves;
        for (const std::size_t i : {0u, 1u})
        {
            curves[i].points = i == 0 ? er : lossTangent;
            curves[i].name = curves[i].points.empty() ? "" : i == 0 ? "Er" : "Loss";
            curves[i].UpdateBounds();
        }
        chart.RemoveCurves();
        content.SetCurves(std::move(curves), name);
        content.Show(chart);
    }
    [[nodiscard]] const CAxis& Frequencies() { return *model.FindAxis(0); }
    [[nodiscard]] std::vector<std::string> LegendNames() const
    {
        std::vector<std::string> names;
        for (const CLegendEntry& entry : model.GetLegend())
        {
            names.push_back(entry.name + "/" + std::to_string(entry.curves.size()));
        }
        return names;
    }
};

TEST_F(MaterialChart, ShowsHertzOnALogarithmicAxis)
{
    EXPECT_EQ(Frequencies().title + Frequencies().unit, "FrequencyMHz") << "before a material is chosen";
    Choose("laminate", {{0, 5}, {1, 4}, {1e4, 3}}, {});
    EXPECT_EQ(model.GetCurveCount(), 2) << "also the empty one";
    EXPECT_EQ(Frequencies().unit + std::to_string(Frequencies().automaticPrefix), "MHz0");
    EXPECT_EQ(Frequencies().dataMin, 0.0);
    EXPECT_THAT(LegendNames(), testing::ElementsAre("Er/1"));
    content.SetLogarithmic(true);
    content.Show(chart);
    EXPECT_TRUE(model.GetScale(Direction::Horizontal).IsLogarithmic());
    ASSERT_EQ(model.GetCurveCount(), 1);
    EXPECT_EQ(model.GetCurve(0).curve->points.size(), 2U) << "0 Hz has no logarithm";
    EXPECT_TRUE(model.GetCurve(0).curve->straightInData);
    EXPECT_EQ(Frequencies().requestedMin, 1e6);
    EXPECT_EQ(Frequencies().requestedMax, 1e10);
    std::string labels;
    for (const double hertz : {1e6, 1e8, 1e10})
    {
        labels += FormatTickLabel(Frequencies(), hertz);
    }
    EXPECT_EQ(labels, " 1MHz  100MHz  10GHz ");
    Choose("none", {}, {});
    EXPECT_EQ(model.GetCurveCount(), 0);
    EXPECT_TRUE(model.GetScale(Direction::Horizontal).IsLogarithmic());
    content.SetLogarithmic(false);
    content.Show(chart);
    EXPECT_EQ(Frequencies().unit + std::to_string(Frequencies().automaticPrefix), "MHz0");
    EXPECT_FALSE(model.GetScale(Direction::Horizontal).IsLogarithmic());
    EXPECT_LT(Frequencies().lowerLimit, 0.0);
}

TEST_F(MaterialChart, KeepsUpToFourMaterials)
{
    EXPECT_FALSE(content.CanKeep());
    std::vector<Colour> colours;
    for (const char* const name : {"a, 25", "b, 25", "c, 25", "d, 25"})
    {
        Choose(name, {{1, 4}, {2, 3}}, {{1, 0.1}, {3, 0.2}});
        EXPECT_TRUE(content.CanKeep());
        content.Keep();
        EXPECT_FALSE(content.CanKeep()) << "twice";
        content.Show(chart);
        const CChartCurve& curve = *model.GetCurve(model.GetCurveCount() - 1).curve;
        EXPECT_TRUE(curve.thin);
        EXPECT_EQ(curve.lineStyle, PenStyle::dash);
        EXPECT_EQ(model.GetLegend().back().colour, curve.colour);
        EXPECT_THAT(colours, testing::Not(testing::Contains(curve.colour)));
        colours.push_back(curve.colour);
    }
    EXPECT_TRUE(chart.GetStyle().bold);
    Choose("e", {{1, 4}, {2, 3}}, {});
    EXPECT_FALSE(content.CanKeep()) << "four are enough";
    EXPECT_EQ(model.GetCurveCount(), 10);
    EXPECT_FALSE(model.GetCurve(0).curve->thin);
    EXPECT_THAT(LegendNames(), testing::ElementsAre("Er/1", "a, 25/2", "b, 25/2", "c, 25/2", "d, 25/2"));
    chart.RemoveCurves();
    content.Forget();
    content.Show(chart);
    EXPECT_FALSE(content.HasKept() || chart.GetStyle().bold);
    EXPECT_THAT(LegendNames(), testing::ElementsAre("Er/1"));
}

TEST_F(MaterialChart, ValuesAreRowsOfAllCurvesByFrequency)
{
    EXPECT_EQ(content.FormatValues(), "");
    Choose("a, 25", {{1000, 4.25}, {2000, 4}}, {});
    content.Keep();
    Choose("b", {{3000, 3.9}, {1000, 3}}, {{0.1, 0.02}});
    EXPECT_EQ(content.FormatValues(), "Frequency (MHz)\tEr\tLoss\ta, 25 Er\r\n"
                                      "0.1\t\t0.02\t\r\n"
                                      "1000\t3\t\t4.25\r\n"
                                      "2000\t\t\t4\r\n"
                                      "3000\t3.9\t\t\r\n");
}
} // namespace
