#include "framework/Profile.h"
#include "tests/chooser/win32/CChooserFixture.h"

namespace
{
using testing::ElementsAre;
using testing::IsEmpty;

class Chooser : public CChooserFixture
{
};

TEST_F(Chooser, OpensWithEveryControlInItsState)
{
    struct Row
    {
        int control;
        const char* text;
        bool visible;
    };
    const Row rows[] = {
        {ML_LABEL_TYPE, "Type:", true},
        {ML_COMBO_TYPE, "<All>", true},
        {ML_LABEL_TECHNOLOGY, "Technology:", true},
        {ML_COMBO_TECHNOLOGY, "<All>", true},
        {ML_LABEL_THICKNESS, "Thickness:", true},
        {ML_EDIT_THICKNESS_MINIMUM, "0", true},
        {ML_LABEL_THICKNESS_TO, "to", true},
        {ML_EDIT_THICKNESS_MAXIMUM, "393.7008", true},
        {ML_LABEL_UNIT, "mils", true},
        {ML_COMBO_UNITS, "English", true},
        {ML_CHECK_SHOW_GRAPHICALLY, "Show graphically", true},
        {ML_LABEL_MATERIAL_FILTER, "Material filter:", false},
        {ML_EDIT_MATERIAL_FILTER, "", false},
        {ML_LABEL_LIBRARY_FILTER, "Library filter:", false},
        {ML_EDIT_LIBRARY_FILTER, "", false},
        {ML_BUTTON_APPLY, "&Apply", false},
        {ML_GRID, "", true},
        {ML_CHART, "", true},
        {ML_BUTTON_ASSIGN, "Assign", true},
        {ML_LABEL_ASSIGNED, "Assigned:", true},
        {ML_EDIT_ASSIGNED, "Core", true},
        {ML_BUTTON_UNASSIGN, "Unassign", true},
        {IDOK, "OK", true},
        {IDCANCEL, "Cancel", true},
        {ML_BUTTON_HELP, "Help", true},
    };
    const auto look = [&]
    {
        for (const Row& row : rows)
        {
            EXPECT_EQ(Text(row.control), row.text) << row.control;
            EXPECT_EQ((GetWindowLongW(Item(row.control), GWL_STYLE) & WS_VISIBLE) != 0, row.visible)
                << row.text;
        }
        RECT units{0, 0, 505, 322};
        MapDialogRect(Dialog(), &units);
        RECT client{};
        GetClientRect(Dialog(), &client);
        EXPECT_TRUE(EqualRect(&units, &client));
        EXPECT_TRUE(IsItemChecked(Dialog(), ML_CHECK_SHOW_GRAPHICALLY));
        EXPECT_THAT(ComboEntries(ML_COMBO_TYPE), ElementsAre("<All>", "b", "a"));
        EXPECT_THAT(ComboEntries(ML_COMBO_TECHNOLOGY), ElementsAre("<All>", "Flexcore", "Prepreg", "Core"));
        EXPECT_THAT(ComboEntries(ML_COMBO_UNITS), ElementsAre("Metric", "English"));
        EXPECT_THAT(Names(), ElementsAre("No thickness", "Flex", "Prepreg", "Core", "Core"));
        EXPECT_THAT(Column(COLUMNKEY_MARKER), ElementsAre("", "", "", "1", "1"));
        EXPECT_EQ(SendMessageW(Dialog(), DM_GETDEFID, 0, 0), MAKELRESULT(IDOK, DC_HASDEFID));
    };
    EXPECT_EQ(Choose({look}, MLMATERIAL_DIELECTRIC, library.FindMaterial("Core")), nullptr);
}

TEST_F(Chooser, MetalsHaveTheTypeAlone)
{
    const auto look = [&]
    {
        for (const int control :
             {ML_LABEL_TECHNOLOGY, ML_COMBO_TECHNOLOGY, ML_LABEL_THICKNESS, ML_EDIT_THICKNESS_MINIMUM,
              ML_LABEL_THICKNESS_TO, ML_EDIT_THICKNESS_MAXIMUM, ML_LABEL_UNIT, ML_COMBO_UNITS})
        {
            EXPECT_FALSE(IsWindowVisible(Item(control))) << control;
        }
        EXPECT_THAT(ComboEntries(ML_COMBO_TYPE), ElementsAre("<All>", "silver", "copper"));
        EXPECT_THAT(Names(), ElementsAre("Wire", "Foil"));
        ChooseFrom(ML_COMBO_TYPE, "copper");
        EXPECT_THAT(Names(), ElementsAre("Foil"));
        ChooseFrom(ML_COMBO_TYPE, "<All>");
        EXPECT_THAT(Names(), ElementsAre("Wire", "Foil"));
    };
    Choose({look}, MLMATERIAL_METAL);
}

TEST_F(Chooser, DielectricsAreNarrowedByTechnologyAndThicknessButNotByType)
{
    const auto narrow = [&]
    {
        ChooseFrom(ML_COMBO_TYPE, "a");
        EXPECT_EQ(Names().size(), 5U);
        ChooseFrom(ML_COMBO_TECHNOLOGY, "Flexcore");
        EXPECT_THAT(Names(), ElementsAre("Flex"));
        ChooseFrom(ML_COMBO_TECHNOLOGY, "<All>");
        ChooseFrom(ML_COMBO_UNITS, "Metric");
        Type(ML_EDIT_THICKNESS_MINIMUM, "50");
        Type(ML_EDIT_THICKNESS_MAXIMUM, "100");
        EXPECT_THAT(Names(), ElementsAre("No thickness", "Flex", "Prepreg")) << "both bounds count";
        Type(ML_EDIT_THICKNESS_MINIMUM, "50.0001");
        EXPECT_THAT(Names(), ElementsAre("No thickness", "Prepreg"));
    };
    Choose({narrow});
    const auto lookAgain = [&]
    {
        EXPECT_EQ(Text(ML_COMBO_TYPE), "a");
        EXPECT_EQ(Text(ML_COMBO_UNITS), "English");
        EXPECT_EQ(Text(ML_EDIT_THICKNESS_MINIMUM), "1.9685");
        EXPECT_EQ(Text(ML_EDIT_THICKNESS_MAXIMUM), "3.937");
        EXPECT_THAT(Names(), ElementsAre("No thickness", "Prepreg"));
    };
    Choose({lookAgain});
}

TEST_F(Chooser, UnitsChangeTheEditsTheLabelAndAllRowsButTheLast)
{
    const auto change = [&]
    {
        EXPECT_THAT(Column(COLUMNKEY_THICKNESS), ElementsAre("N/A", "1.9685", "3.937", "7.874", "7.874"));
        ChooseFrom(ML_COMBO_UNITS, "Metric");
        EXPECT_EQ(Text(ML_LABEL_UNIT), "um");
        EXPECT_EQ(Text(ML_EDIT_THICKNESS_MAXIMUM), "10000");
        EXPECT_THAT(Column(COLUMNKEY_THICKNESS), ElementsAre("N/A", "50", "100", "200", "7.874"));
        const CGridModel& model = Grid().GetModel();
        EXPECT_STREQ(model.GetText(0, model.FindColumn(COLUMNKEY_THICKNESS)), "Thickness (um)");
    };
    Choose({change});
}

TEST_F(Chooser, WhatIsNoThicknessIsRefusedBeforeAnythingChanges)
{
    const auto mistype = [&]
    {
        Type(ML_EDIT_THICKNESS_MINIMUM, "2 mils");
        ASSERT_EQ(messages.boxes.size(), 1U);
        EXPECT_EQ(messages.boxes[0].text, "Please enter a number.");
        EXPECT_EQ(GetFocus(), Item(ML_EDIT_THICKNESS_MINIMUM));
        EXPECT_EQ(GetChooserFilterSettings().thicknessMinimum, 0.0);
        EXPECT_EQ(Names().size(), 5U);
        SetItemText(Dialog(), ML_EDIT_THICKNESS_MINIMUM, "2");
        SendMessageW(Item(ML_EDIT_THICKNESS_MINIMUM), WM_KEYDOWN, VK_RETURN, 0);
        EXPECT_THAT(Names(), ElementsAre("No thickness", "Prepreg", "Core", "Core"));
        SetItemText(Dialog(), ML_EDIT_THICKNESS_MAXIMUM, "");
        SendMessageW(Dialog(), WM_COMMAND, ML_BUTTON_APPLY, 0);
        EXPECT_EQ(messages.boxes.size(), 2U);
        EXPECT_EQ(Names().size(), 4U);
    };
    const auto cancelWithNonsense = [&]
    {
        messages.boxes.clear();
        closed = true;
        PostMessageW(Item(ML_EDIT_THICKNESS_MAXIMUM), WM_KEYDOWN, VK_ESCAPE, 0);
    };
    Choose({mistype, cancelWithNonsense});
    EXPECT_THAT(messages.boxes, IsEmpty()) << "who leaves is not asked for a number";
}

TEST_F(Chooser, EnterInAnEditAppliesAndElsewhereEndsWithOk)
{
    IMaterial* const flex = library.FindMaterial("Flex");
    const auto enterAndAssign = [&]
    {
        SetFocus(Item(ML_EDIT_THICKNESS_MINIMUM));
        SetItemText(Dialog(), ML_EDIT_THICKNESS_MINIMUM, "3");
        PostMessageW(GetFocus(), WM_KEYDOWN, VK_RETURN, 0);
    };
    const auto look = [&]
    {
        EXPECT_THAT(Names(), ElementsAre("No thickness", "Prepreg", "Core", "Core"));
        SetItemText(Dialog(), ML_EDIT_THICKNESS_MINIMUM, "0");
        SetFocus(Grid().GetList());
        Select(2, 2);
        Press(ML_BUTTON_ASSIGN);
        closed = true;
        PostMessageW(GetFocus(), WM_KEYDOWN, VK_RETURN, 0);
    };
    EXPECT_EQ(Choose({enterAndAssign, look}), flex);
}

TEST_F(Chooser, AssignsTheOneSelectedRow)
{
    const auto assign = [&]
    {
        EXPECT_EQ(Text(ML_EDIT_ASSIGNED), "");
        Select(3, 3);
        Press(ML_BUTTON_ASSIGN);
        EXPECT_EQ(Text(ML_EDIT_ASSIGNED), "Prepreg");
        EXPECT_THAT(Column(COLUMNKEY_MARKER), ElementsAre("", "", "1", "", ""));
        Select(4, 5);
        Press(ML_BUTTON_ASSIGN);
        EXPECT_EQ(Text(ML_EDIT_ASSIGNED), "") << "two rows are no choice";
        EXPECT_THAT(Column(COLUMNKEY_MARKER), ElementsAre("", "", "", "", ""));
        Select(5, 5);
        Press(ML_BUTTON_ASSIGN);
        EXPECT_THAT(Column(COLUMNKEY_MARKER), ElementsAre("", "", "", "1", "1"));
    };
    EXPECT_EQ(Choose({assign}), nullptr) << "cancelled";
    EXPECT_EQ(Choose({assign, [&] { Press(IDOK); }}), library.FindMaterial("Core"));
    const auto unassign = [&]
    {
        Press(ML_BUTTON_HELP);
        SendMessageW(Dialog(), WM_LBUTTONDOWN, 0, 0);
        Press(ML_BUTTON_UNASSIGN);
        EXPECT_EQ(Text(ML_EDIT_ASSIGNED), "");
        Press(IDOK);
    };
    EXPECT_EQ(Choose({unassign}, MLMATERIAL_DIELECTRIC, library.FindMaterial("Core")), nullptr);
}

TEST_F(Chooser, DrawsTheSelectedMaterialsTablesOverMegahertz)
{
    const auto select = [&]
    {
        EXPECT_EQ(Chart().GetModel().GetCurveCount(), 0);
        Select(4, 4);
        ASSERT_EQ(Chart().GetModel().GetCurveCount(), 2);
        const CChartCurve& er = *Chart().GetModel().GetCurve(0).curve;
        EXPECT_EQ(er.points.size(), 3U);
        EXPECT_EQ(er.GetPoint(1).x, 2000.0);
        EXPECT_EQ(er.GetPoint(1).y, 4.1);
        EXPECT_EQ(er.colour, 0x0000FFU);
        const CChartCurve& loss = *Chart().GetModel().GetCurve(1).curve;
        EXPECT_EQ(loss.points.size(), 2U);
        EXPECT_EQ(loss.colour, 0x00FFFFU);
        EXPECT_EQ(Chart().GetModel().GetCurve(1).verticalAxis, 2);
        Select(5, 5);
        EXPECT_THAT(Chart().GetModel().GetCurve(0).curve->points, IsEmpty()) << "one value is no curve";
        Select(4, 5);
        EXPECT_THAT(Chart().GetModel().GetCurve(0).curve->points, IsEmpty());
        const CAxis& frequency = *Chart().GetModel().FindAxis(0);
        EXPECT_EQ(frequency.title, "Frequency");
        EXPECT_EQ(frequency.unit, "MHz");
    };
    Choose({select});
    const auto selectMetal = [&]
    {
        Select(2, 2);
        ASSERT_EQ(Chart().GetModel().GetCurveCount(), 2);
        EXPECT_EQ(Chart().GetModel().GetCurve(0).curve->points.size(), 2U);
        EXPECT_EQ(Chart().GetModel().GetCurve(0).curve->colour, 0xFFFF00U);
        EXPECT_EQ(Chart().GetModel().FindAxis(1)->title, "Rough Factor");
    };
    Choose({selectMetal}, MLMATERIAL_METAL);
}

TEST_F(Chooser, TheHostWaitsMeanwhileAndIsActiveAgainAfterwards)
{
    Choose({[&] { EXPECT_FALSE(IsWindowEnabled(host.Get())); }});
    EXPECT_TRUE(IsWindowEnabled(host.Get()));
    EXPECT_EQ(GetActiveWindow(), host.Get());
}

TEST_F(Chooser, OpensAgainOverALibraryThatIsNewAndOverAnEmptyOne)
{
    for (int round = 0; round < 3; ++round)
    {
        auto fresh = std::make_unique<CFakeMaterialLib>();
        if (round < 2)
        {
            FillLibrary(*fresh);
        }
        const std::size_t rows = round < 2 ? 5 : 0;
        CModalScript script({[&]
                             {
                                 EXPECT_EQ(Names().size(), rows);
                                 Press(ML_BUTTON_ASSIGN);
                                 Press(IDOK);
                             }});
        EXPECT_EQ(RunChooser(*fresh, nullptr, MLMATERIAL_DIELECTRIC), nullptr);
        EXPECT_TRUE(script.IsDone());
    }
}
} // namespace
