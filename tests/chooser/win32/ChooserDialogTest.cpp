#include "framework/Profile.h"
#include "tests/chooser/win32/CChooserFixture.h"
#include "tests/grid/win32/CGridFixture.h"

namespace
{
using testing::ElementsAre;
using testing::IsEmpty;

class Chooser : public CChooserFixture
{
};

TEST_F(Chooser, OpensWithEveryControlInItsState)
{
    const std::pair<int, const char*> texts[] = {
        {ML_COMBO_TYPE, "<All>"},    {ML_COMBO_TECHNOLOGY, "<All>"}, {ML_EDIT_THICKNESS_MINIMUM, "0"},
        {ML_LABEL_UNIT, "mils"},     {ML_COMBO_UNITS, "English"},    {ML_EDIT_THICKNESS_MAXIMUM, "393.7008"},
        {ML_EDIT_ASSIGNED, "Core"},  {ML_BUTTON_ASSIGN, "Assign"},   {ML_BUTTON_UNASSIGN, "Unassign"},
        {ML_BUTTON_APPLY, "&Apply"}, {ML_LABEL_TYPE, "Type:"},       {ML_BUTTON_HELP, "Help"},
    };
    const int hidden[] = {ML_LABEL_MATERIAL_FILTER, ML_EDIT_MATERIAL_FILTER, ML_LABEL_LIBRARY_FILTER,
                          ML_EDIT_LIBRARY_FILTER, ML_BUTTON_APPLY};
    const auto look = [&]
    {
        for (const auto& [control, text] : texts)
        {
            EXPECT_EQ(Text(control), text) << control;
        }
        for (HWND item = GetWindow(Dialog(), GW_CHILD); item != nullptr; item = GetWindow(item, GW_HWNDNEXT))
        {
            const int control = GetDlgCtrlID(item);
            EXPECT_EQ(IsWindowVisible(item) == FALSE, std::ranges::find(hidden, control) != std::end(hidden))
                << control;
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
        const HWND list = Grid().GetList();
        EXPECT_EQ(CGridFixture::GetHeaderTexts(list),
                  " |Type|Thickness (mils)|Er|Loss Tangent|Material|Temperature (\xB0"
                  "C)|Technology|Vendor|Comment");
        EXPECT_EQ(CGridFixture::GetItemText(list, 3, 0), "\x95") << "the marker";
        EXPECT_EQ(SendMessageW(Dialog(), DM_GETDEFID, 0, 0), MAKELRESULT(IDOK, DC_HASDEFID));
        CGridFixture::ClickHeader(list, 5);
        EXPECT_THAT(Names(), ElementsAre("Core", "Core", "Flex", "No thickness", "Prepreg"));
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
        EXPECT_EQ(Text(ML_LABEL_UNIT), "um");
        EXPECT_EQ(Text(ML_EDIT_THICKNESS_MAXIMUM), "10000");
        EXPECT_THAT(Column(COLUMNKEY_THICKNESS), ElementsAre("N/A", "50", "100", "200", "7.874"))
            << "all rows but the last";
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

TEST_F(Chooser, FiltersByTheTypeThatItsBoxShows)
{
    Choose({[] { ChooseFrom(ML_COMBO_TYPE, "a"); }});
    const auto lookAtMetals = [&]
    {
        EXPECT_EQ(Text(ML_COMBO_TYPE), "<All>");
        EXPECT_THAT(Names(), ElementsAre("Wire", "Foil"));
    };
    Choose({lookAtMetals}, MLMATERIAL_METAL);
    Choose({[&] { EXPECT_EQ(Text(ML_COMBO_TYPE), "a") << "known here"; }});
}

TEST_F(Chooser, AThicknessThatNobodyTypesKeepsItsMetresAndTheRows)
{
    const double metres = 0.00012345678;
    GetChooserFilterSettings().thicknessMaximum = metres;
    const auto leave = [&]
    {
        for (const char* const unit : {"Metric", "English", "Metric"})
        {
            ChooseFrom(ML_COMBO_UNITS, unit);
        }
        CGridModel& model = Grid().GetModel();
        model.SetCell(1, COLUMNKEY_COMMENT, 0, "still there");
        Type(ML_EDIT_THICKNESS_MAXIMUM, Text(ML_EDIT_THICKNESS_MAXIMUM).c_str());
        EXPECT_STREQ(model.GetText(1, COLUMNKEY_COMMENT), "still there") << "nothing was changed";
        SendMessageW(Dialog(), WM_COMMAND, ML_BUTTON_APPLY, 0);
        EXPECT_STREQ(model.GetText(1, COLUMNKEY_COMMENT), "") << "asked for";
        Type(ML_EDIT_THICKNESS_MINIMUM, "50");
        EXPECT_EQ(GetChooserFilterSettings().thicknessMaximum, metres);
        EXPECT_EQ(GetChooserFilterSettings().thicknessMinimum, 5e-5);
    };
    Choose({leave});
}

TEST_F(Chooser, OpensWithTheAssignedMaterialSelectedAndInView)
{
    for (int i = 0; i < 40; ++i)
    {
        AddTable(AddMaterial(library, MLMATERIAL_DIELECTRIC, ("More " + std::to_string(i)).c_str(), "c"),
                 MLTABLE_ER, 25.0, {4.0});
    }
    const auto isInView = [](int row)
    {
        const HWND list = Grid().GetList();
        const int top = ListView_GetTopIndex(list);
        return row > top && row <= top + ListView_GetCountPerPage(list);
    };
    const auto look = [&]
    {
        EXPECT_EQ(Grid().GetModel().GetSelection().GetRows(), std::vector{44});
        EXPECT_TRUE(isInView(44));
        ASSERT_EQ(Chart().GetModel().GetCurveCount(), 2);
        EXPECT_EQ(Chart().GetModel().GetCurve(0).curve->points.size(), 3U);
        NMLISTVIEW click{{Grid().GetList(), 0, static_cast<UINT>(LVN_COLUMNCLICK)}, -1, 5, 0, 0, 0, {}, 0};
        for (int i = 0; i < 2; ++i) // upwards, downwards
        {
            SendMessageW(GetParent(Grid().GetList()), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&click));
        }
        ChooseFrom(ML_COMBO_TECHNOLOGY, "Core");
        EXPECT_EQ(Grid().GetModel().GetSelection().GetRows(), std::vector{1});
        ChooseFrom(ML_COMBO_TECHNOLOGY, "<All>");
        EXPECT_EQ(Grid().GetCurrentMaterial(), library.FindMaterial("Core"));
        EXPECT_TRUE(isInView(Grid().GetModel().GetSelection().GetOnlyRow()));
        EXPECT_EQ(Names().front(), "Prepreg") << "sorted downwards";
    };
    Choose({look}, MLMATERIAL_DIELECTRIC, library.FindMaterial("Core"));
}

TEST_F(Chooser, WhatIsNoThicknessIsRefusedBeforeAnythingChanges)
{
    const auto mistype = [&]
    {
        Type(ML_EDIT_THICKNESS_MINIMUM, "2 mils");
        ASSERT_EQ(messages.boxes.size(), 1U);
        EXPECT_EQ(messages.boxes[0].text, "Please enter a number.");
        EXPECT_EQ(messages.boxes[0].caption, messages.applicationName);
        EXPECT_EQ(messages.boxes[0].owner, Dialog());
        EXPECT_EQ(GetFocus(), Item(ML_EDIT_THICKNESS_MINIMUM));
        EXPECT_EQ(SendMessageW(GetFocus(), EM_GETSEL, 0, 0), MAKELONG(0, 6)) << "the text is selected";
        EXPECT_EQ(GetChooserFilterSettings().thicknessMinimum, 0.0);
        EXPECT_EQ(Names().size(), 5U);
        SetItemText(Dialog(), ML_EDIT_THICKNESS_MINIMUM, "0");
        SetItemText(Dialog(), ML_EDIT_THICKNESS_MAXIMUM, "");
        messages.onShow = [] { throw std::runtime_error("host"); }; // is no failure of the dialog
        SendMessageW(Dialog(), WM_COMMAND, ML_BUTTON_APPLY, 0);
        EXPECT_EQ(messages.boxes.size(), 2U);
        EXPECT_EQ(GetFocus(), Item(ML_EDIT_THICKNESS_MAXIMUM));
        EXPECT_EQ(Names().size(), 5U);
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

TEST_F(Chooser, AfterARefusedNumberTheMouseIsFreeAndTheTextSelected)
{
    Steps steps;
    for (const int clicked : {IDCANCEL, IDOK, ML_COMBO_TYPE, ML_CHECK_SHOW_GRAPHICALLY, ML_EDIT_ASSIGNED})
    {
        steps.emplace_back(
            [this, clicked]
            {
                messages.boxes.clear();
                SetFocus(Item(ML_EDIT_THICKNESS_MINIMUM));
                SetItemText(Dialog(), ML_EDIT_THICKNESS_MINIMUM, "wrong");
                SendMessageW(Item(clicked), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
            });
        steps.emplace_back(
            [this, clicked]
            {
                SCOPED_TRACE(clicked);
                EXPECT_EQ(messages.boxes.size(), 1U);
                EXPECT_EQ(GetCapture(), nullptr);
                EXPECT_EQ(GetFocus(), Item(ML_EDIT_THICKNESS_MINIMUM));
                EXPECT_EQ(SendMessageW(GetFocus(), EM_GETSEL, 0, 0), MAKELONG(0, 5));
                EXPECT_EQ(SendMessageW(Item(IDOK), BM_GETSTATE, 0, 0) & BST_PUSHED, 0);
                EXPECT_EQ(SendMessageW(Item(IDCANCEL), BM_GETSTATE, 0, 0) & BST_PUSHED, 0);
                EXPECT_FALSE(SendMessageW(Item(ML_COMBO_TYPE), CB_GETDROPPEDSTATE, 0, 0));
                EXPECT_TRUE(IsItemChecked(Dialog(), ML_CHECK_SHOW_GRAPHICALLY));
                SendMessageW(GetFocus(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(5, 5));
                SendMessageW(GetFocus(), WM_LBUTTONUP, 0, MAKELPARAM(5, 5));
                EXPECT_EQ(messages.boxes.size(), 1U) << "who corrects it is left alone";
                SetItemText(Dialog(), ML_EDIT_THICKNESS_MINIMUM, "0");
            });
    }
    Choose(steps);
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
        CGridFixture::PressKey(Grid().GetList(), VK_RETURN, true);
        EXPECT_EQ(Text(ML_EDIT_ASSIGNED), "Prepreg");
        Select(4, 5);
        CGridFixture::PressKey(Grid().GetList(), VK_RETURN, true);
        EXPECT_EQ(Text(ML_EDIT_ASSIGNED), "Prepreg") << "kept by who did not ask for more";
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

TEST_F(Chooser, DrawsTheOneSelectedMaterial)
{
    const auto select = [&]
    {
        EXPECT_EQ(Chart().GetModel().GetCurveCount(), 0);
        Select(4, 4);
        ASSERT_EQ(Chart().GetModel().GetCurveCount(), 2);
        EXPECT_EQ(Chart().GetModel().GetCurve(0).curve->points.size(), 3U);
        EXPECT_EQ(Chart().GetModel().GetCurve(1).curve->points.size(), 2U);
        EXPECT_EQ(Chart().GetModel().GetCurve(1).verticalAxis, 2);
        Select(4, 5);
        EXPECT_THAT(Chart().GetModel().GetCurve(0).curve->points, IsEmpty());
        EXPECT_EQ(Chart().GetModel().FindAxis(0)->title, "Frequency");
        EXPECT_EQ(Chart().GetModel().FindAxis(0)->unit, "MHz");
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

TEST_F(Chooser, ColumnsStayWhereTheyWerePut)
{
    const auto places = [] { return Grid().ReadColumnPlaces(); };
    std::vector<ColumnPlace> put;
    Choose({[&]
            {
                put = places();
                std::swap(put.front(), put.back());
                put.back().width = 0;
                put.front().width *= 2;
                Grid().ShowColumnPlaces(put);
                put = places();
                EXPECT_EQ(put.back(), (ColumnPlace{COLUMNKEY_MARKER, 0}));
            }});
    Choose({[&] { EXPECT_NE(places(), put) << "other columns"; }}, MLMATERIAL_METAL);
    Choose({[&] { EXPECT_EQ(places(), put); }});
    StoreProfileString("SelectMaterial", "DielectricColumns", "1:1,1:1");
    Choose({[&] { EXPECT_EQ(places().front().userAttribute, COLUMNKEY_MARKER); }});
}

TEST_F(Chooser, ATypeThatIsLongIsReadWhole)
{
    const std::string type(100, 'W');
    AddTable(AddMaterial(library, MLMATERIAL_DIELECTRIC, "More", type.c_str()), MLTABLE_ER, 25.0, {4.0});
    Choose({[&]
            {
                const LRESULT width = SendMessageW(Item(ML_COMBO_TYPE), CB_GETDROPPEDWIDTH, 0, 0);
                EXPECT_GT(width, 4 * (Place(ML_COMBO_TYPE).right - Place(ML_COMBO_TYPE).left));
            }});
}

TEST_F(Chooser, OpensOverAnEmptyLibrary)
{
    library.RemoveAllMaterials();
    const auto assign = [&]
    {
        EXPECT_THAT(Names(), IsEmpty());
        Press(ML_BUTTON_ASSIGN);
        Press(IDOK);
    };
    EXPECT_EQ(Choose({assign}), nullptr);
}
} // namespace
