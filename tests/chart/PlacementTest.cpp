#include "chart/CSvgCanvas.h"
#include "chart/ChartLayout.h"
#include "chart/PaintChart.h"
#include "chart/PlaceAxisTexts.h"
#include "tests/chart/CRecorderCanvas.h"
#include "tests/chart/MakeChart.h"

#include <gtest/gtest.h>

namespace
{
// Records, with the measures of the pictures' typeface.
class CMeasuredRecorder final : public CRecorderCanvas
{
public:
    PixelSize GetTextExtent(std::string_view text) override { return measure.GetTextExtent(text); }

private:
    CSvgCanvas measure{{1, 1}, 12};
};

// What characters cover of a cell: not the blanks at its ends, nor the leading above digits, nor, where
// nothing hangs below the line, the room for that.
PixelRect GetInk(const CRecorderCanvas::Call& call)
{
    PixelRect ink = call.rect;
    ink.left += call.text.starts_with(' ') ? 3 : 0;
    ink.right -= call.text.ends_with(' ') ? 3 : 0;
    ink.top += 2;
    ink.bottom -= call.text.find_first_of("gpqyj,") == std::string::npos ? 3 : 0;
    return ink;
}

// Read-outs may cover the horizontal titles in no more than a narrow window, so they are looked at apart.
TEST(Placement, NoTextMeetsAnotherOrLeavesTheWindow)
{
    for (const PixelSize size : {PixelSize{300, 150}, {760, 240}, {1920, 1080}, {400, 300}})
    {
        for (std::size_t axes = 1; axes <= 3; ++axes)
        {
            for (const bool logarithmic : {false, true})
            {
                for (const bool hovering : {false, true})
                {
                    LaminateCurves laminate;
                    CChartModel model;
                    laminate.AddTo(model, axes, logarithmic);
                    CMeasuredRecorder canvas;
                    const PixelRect client = {0, 0, size.width, size.height};
                    LayOutChart(model, client, canvas);
                    ChartInteraction interaction;
                    interaction.lastPoint =
                        hovering ? PixelPoint{model.frame.plot.right - 20, model.frame.plot.top + 20}
                                 : PixelPoint{-1, -1};
                    PaintChart({model, {}, interaction, client}, canvas);
                    const auto texts = canvas.Find([](const CRecorderCanvas::Call& call)
                                                   { return call.kind == CRecorderCanvas::Kind::Text; });
                    ASSERT_GE(texts.size(), 5 + 2 * axes);
                    for (std::size_t i = 0; i < texts.size(); ++i)
                    {
                        const PixelRect& cell = texts[i].rect;
                        EXPECT_TRUE(cell.left >= 0 && cell.top >= 0 && cell.right <= size.width &&
                                    cell.bottom <= size.height)
                            << texts[i].text << size.width;
                        for (std::size_t k = 0; k < i; ++k)
                        {
                            EXPECT_FALSE(GetInk(texts[i]).Meets(GetInk(texts[k])))
                                << texts[i].text << "|" << texts[k].text << " " << size.width << " " << axes;
                        }
                    }
                }
            }
        }
    }
}

// Also in letters as large as on a screen of 400 per cent, where the ticks' least distance is soon too
// little.
TEST(Placement, LabelsOfAnAxisDoNotMeet)
{
    for (const int font : {12, 34, 48})
    {
        CSvgCanvas measure{{1, 1}, font};
        for (int width = 300; width <= 2600; width += 50)
        {
            CChartModel model;
            model.AddAxis(0, false);
            model.AddAxis(1, true);
            model.SetAxisTitle(0, "Frequency", "MHz");
            CChartCurve curve = MakeCurve({{1.0, 0.0}, {50'000.0, 1.0}});
            model.AddCurve(curve, 0, 1);
            const PixelRect client = {0, 0, width, 400};
            LayOutChart(model, client, measure);
            const auto labels = PlaceTickLabels({model, {}, {}, client}, Direction::Horizontal, measure)[0];
            ASSERT_GE(labels.size(), 1u);
            for (std::size_t i = 1; i < labels.size(); ++i)
            {
                const PlacedText& before = labels[i - 1];
                EXPECT_LE(before.topLeft.x + measure.GetTextExtent(before.text).width, labels[i].topLeft.x)
                    << before.text << " " << font << " " << width;
            }
        }
    }
}

TEST(Placement, LabelledTicksKeepTheirLabelsWhenTheViewMoves)
{
    CChartModel model;
    model.AddAxis(0, false);
    model.AddAxis(1, true);
    CChartCurve curve = MakeCurve({{0, 0}, {1'000'000, 1}});
    model.AddCurve(curve, 0, 1);
    model.SetAxisTitle(0, "", "a long unit");
    model.SetScaleMode(false, false);
    CRecorderCanvas canvas;
    const PixelRect client = {0, 0, 600, 300};
    LayOutChart(model, client, canvas);
    CAxis& axis = *model.FindAxis(0);
    for (int moved = 0; moved < 3; ++moved)
    {
        const auto labels = PlaceTickLabels({model, {}, {}, client}, Direction::Horizontal, canvas);
        EXPECT_GE(labels[0].size(), 1u);
        for (const PlacedText& label : labels[0])
        {
            const double value = axis.visibleMin + label.tick * axis.tickStep;
            EXPECT_NEAR(std::remainder(value, 5 * axis.tickStep), 0.0, 1.0) << value;
        }
        axis.visibleMin += axis.tickStep;
        axis.visibleMax += axis.tickStep;
    }
}

TEST(Placement, LongTitlesAreShortenedAndShortOnesAreNot)
{
    CChartModel model;
    model.AddAxis(0, false);
    model.AddAxis(1, true);
    model.AddAxis(2, true);
    model.SetAxisTitle(1, "Er", "");
    model.SetAxisTitle(2, std::string(100, 'x'), "");
    CRecorderCanvas canvas;
    const PixelRect client = {0, 0, 300, 200};
    LayOutChart(model, client, canvas);
    const auto titles = PlaceTitles({model, {}, {}, client}, Direction::Vertical, canvas);
    EXPECT_EQ(titles[0].text, "Er");
    EXPECT_EQ(titles[0].topLeft.x, model.frame.plot.left);
    EXPECT_TRUE(titles[1].text.ends_with("x...")) << titles[1].text;
    EXPECT_EQ(titles[1].topLeft.x + canvas.GetTextExtent(titles[1].text).width, model.frame.plot.right);
    EXPECT_GT(titles[1].topLeft.x, titles[0].topLeft.x + 12);
    EXPECT_EQ(FitText(canvas, "abcdef", 36), "abcdef");
    EXPECT_EQ(FitText(canvas, "abcdef", 35), "ab...");
    EXPECT_EQ(FitText(canvas, "abcdef", 20), "");
    EXPECT_EQ(FitText(canvas, "", 0), "");
}
} // namespace
