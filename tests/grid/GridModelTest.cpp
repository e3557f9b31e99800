#include "grid/CGridModel.h"

#include <algorithm>
#include <bit>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace
{
using testing::ElementsAre;

struct CRecordingListener final : IGridListener
{
    void OnGridChanged(unsigned changes) override { told.push_back(changes); }
    std::vector<unsigned> told;
};

// Rows named "1", "2", ... in column 1.
void FillRows(CGridModel& model, int rows)
{
    model.Reset(2);
    model.SetRowCount(rows);
    for (int row = 1; row <= rows; ++row)
    {
        model.SetCell(row, 1, 0, std::to_string(row));
    }
}

TEST(CGridModel, RefusesWhatDoesNotExist)
{
    CGridModel model;
    FillRows(model, 2);
    for (const GridCell cell : {GridCell{0, 1}, {3, 1}, {-1, 1}, {1, 0}, {1, 3}})
    {
        EXPECT_THROW(model.SetCell(cell.row, cell.column, 0, "x"), std::invalid_argument);
    }
    EXPECT_THROW(model.SetCell(1, 1, 1, "x"), std::invalid_argument) << "no such style";
    EXPECT_THROW(model.HideColumn(3, true), std::invalid_argument);
    EXPECT_THROW(model.SetRowCount(-1), std::invalid_argument);
    for (const std::vector<int>& order : {std::vector{1}, {1, 1}, {0, 1}, {1, 3}, {1, 2, 3}})
    {
        EXPECT_THROW(model.PermuteRows(order), std::invalid_argument);
    }
    EXPECT_STREQ(model.GetText(1, 1), "1") << "nothing has moved";
}

TEST(CGridModel, FindsColumnsFromTheLastOne)
{
    CGridModel model;
    model.Reset(3);
    model.SetHeaderStyle(1, 7, GridValueType::Text);
    model.SetHeaderStyle(3, 7, GridValueType::Text);
    EXPECT_EQ(model.FindColumn(7), 3);
    EXPECT_EQ(model.FindColumn(8), 0);
}

TEST(CGridModel, GivesCellsTheTextOfTheirStyle)
{
    CGridModel model;
    FillRows(model, 1);
    const GridStyleId mark = model.AddStyle({GridValueType::Mark, GridEmphasis::Normal, "1"});
    model.SetCell(1, 2, mark);
    EXPECT_STREQ(model.GetText(1, 2), "1");
    EXPECT_EQ(model.GetStyle(1, 2).valueType, GridValueType::Mark);
    model.SetCell(1, 2, mark, std::string_view("a\0b", 3));
    EXPECT_STREQ(model.GetText(1, 2), "a") << "a NUL ends a text";
    model.SetCell(1, 1, 0, model.GetText(1, 2));
    EXPECT_STREQ(model.GetText(1, 1), "a") << "a text of the grid itself";
}

TEST(CGridModel, SelectionAndCurrentCellGoWithTheirRows)
{
    CGridModel model;
    FillRows(model, 4);
    EXPECT_EQ(model.GetSelection().GetOnlyRow(), 0);
    model.SetCurrentCell({3, 2});
    EXPECT_EQ(model.GetSelection().GetOnlyRow(), 3) << "stands for the selection";
    model.SelectRows(1, 2, true);
    EXPECT_EQ(model.GetSelection().GetOnlyRow(), 0) << "two are selected";
    const int order[] = {4, 3, 2, 1};
    model.PermuteRows(order);
    EXPECT_STREQ(model.GetText(1, 1), "4");
    EXPECT_THAT(model.GetSelection().GetRows(), ElementsAre(3, 4));
    EXPECT_EQ(model.GetSelection().GetCurrentCell(), (GridCell{2, 2}));
    model.SetCurrentCell({});
    model.PermuteRows(order);
    EXPECT_EQ(model.GetSelection().GetCurrentCell(), GridCell()) << "there was none";
    model.PermuteRows(order);
    model.SetCurrentCell({5, 1});
    EXPECT_EQ(model.GetSelection().GetCurrentCell(), GridCell()) << "beyond the last row";
    model.SelectRows(-5, 3, false);
    EXPECT_EQ(model.GetSelection().GetOnlyRow(), 4);
    model.SetRowCount(4);
    EXPECT_TRUE(model.GetSelection().GetRows().empty());
    EXPECT_STREQ(model.GetText(1, 1), "4") << "the rows stay";
}

TEST(CGridModel, TellsItsListenerOnceTheRedrawIsUnlocked)
{
    CGridModel model;
    FillRows(model, 2);
    CRecordingListener listener;
    model.SetListener(&listener);
    model.SelectRows(1, 1, true);
    model.SelectRows(1, 1, true); // changes nothing
    model.SetCurrentCell({1, 1}); // does not stand for the selection
    EXPECT_THAT(listener.told, ElementsAre(GRIDCHANGE_SELECTION, GRIDCHANGE_CURRENT));

    listener.told.clear();
    {
        CGridUpdateScope outer(model);
        {
            CGridUpdateScope inner(model);
            model.SetCell(1, 1, 0, "x");
            inner.Finish();
        }
        model.SetRowCount(0);
        EXPECT_TRUE(listener.told.empty());
    }
    constexpr unsigned all =
        GRIDCHANGE_CELLS | GRIDCHANGE_ROWS | GRIDCHANGE_ORDER | GRIDCHANGE_SELECTION | GRIDCHANGE_CURRENT;
    EXPECT_EQ(std::popcount(all), 5) << "a bit for each";
    EXPECT_THAT(listener.told, ElementsAre(all));
}

// Long texts rewritten again and again, some of them shared between rows, must not pile up.
TEST(CGridModel, GivesBackTheRoomOfFormerTexts)
{
    CGridModel model;
    FillRows(model, 100);
    for (int round = 0; round < 300; ++round)
    {
        for (int row = 1; row <= 100; ++row)
        {
            model.SetCell(row, 2, 0, std::string(1000, static_cast<char>('a' + (row / 10 + round) % 26)));
        }
    }
    const char* first = model.GetText(1, 1);
    const char* last = first;
    for (int row = 1; row <= 100; ++row)
    {
        ASSERT_EQ(model.GetText(row, 2), std::string(1000, static_cast<char>('a' + (row / 10 + 299) % 26)));
        ASSERT_EQ(model.GetText(row, 1), std::to_string(row));
        first = std::min({first, model.GetText(row, 1), model.GetText(row, 2)});
        last = std::max({last, model.GetText(row, 1), model.GetText(row, 2)});
    }
    EXPECT_LT(last - first, 30'000) << "of eleven different texts, 3 MB were written";
}
} // namespace
