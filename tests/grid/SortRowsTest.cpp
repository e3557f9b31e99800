#include "grid/SortRows.h"

#include "grid/MergeSort.h"

#include <cstring>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <numeric>
#include <random>

namespace
{
using testing::ElementsAre;

int CompareBytes(const char* a, const char* b)
{
    return std::strcmp(a, b);
}

void SetRows(CGridModel& model, const std::vector<std::pair<const char*, const char*>>& rows)
{
    model.Reset(2);
    model.SetRowCount(static_cast<int>(rows.size()));
    for (int row = 1; row <= model.GetRowCount(); ++row)
    {
        model.SetCell(row, 1, 0, rows[static_cast<std::size_t>(row) - 1].first);
        model.SetCell(row, 2, 0, rows[static_cast<std::size_t>(row) - 1].second);
    }
}

std::vector<std::string> Rows(const CGridModel& model)
{
    std::vector<std::string> rows;
    for (int row = 1; row <= model.GetRowCount(); ++row)
    {
        rows.push_back(std::string(model.GetText(row, 1)) + "/" + model.GetText(row, 2));
    }
    return rows;
}

void Click(CGridModel& model, int column)
{
    model.GetSortKeys().ClickHeader(column);
    SortRows(model, CompareBytes);
}

TEST(SortRows, KeepsEmptyTextsLastAndFormerKeysAsSecondary)
{
    CGridModel model;
    SetRows(model, {{"b", "1"}, {"", "2"}, {"a", "2"}, {"b", "2"}, {"a", ""}, {"", "1"}});
    EXPECT_THAT(model.GetSortedBy(), ElementsAre());
    Click(model, 2);
    Click(model, 1);
    EXPECT_THAT(Rows(model), ElementsAre("a/2", "a/", "b/1", "b/2", "/1", "/2"));
    Click(model, 1);
    EXPECT_THAT(model.GetSortedBy(), ElementsAre(GridSortKey{1, false}, GridSortKey{2, true}));
    EXPECT_THAT(Rows(model), ElementsAre("b/1", "b/2", "a/2", "a/", "/1", "/2"));
    Click(model, 2); // ascending again, though it was a later key
    EXPECT_THAT(Rows(model), ElementsAre("b/1", "/1", "b/2", "a/2", "/2", "a/"));
    EXPECT_THAT(model.GetSortKeys().GetAll(),
                ElementsAre(GridSortKey{2, true}, GridSortKey{1, false}, GridSortKey()));
    model.HideColumn(2, true);
    EXPECT_THAT(model.GetSortedBy(), ElementsAre(GridSortKey{1, false})) << "nobody sees the first key";
    model.SetRowCount(6);
    EXPECT_THAT(model.GetSortedBy(), ElementsAre()) << "rows may have come that are not sorted";
}

TEST(SortRows, ThirdKeyCountsByTheTextsOfNow)
{
    CGridModel model;
    model.Reset(3);
    model.SetRowCount(2);
    Click(model, 3);
    Click(model, 2);
    model.SetCell(1, 3, 0, "b");
    model.SetCell(2, 3, 0, "a");
    Click(model, 1);
    EXPECT_STREQ(model.GetText(1, 3), "a");
}

TEST(SortRows, TakesNoRowsAndOneRow)
{
    CGridModel model;
    model.Reset(1);
    Click(model, 1);
    model.SetRowCount(1);
    Click(model, 1);
    model.GetSortKeys().ClickHeader(7); // no column of this grid
    EXPECT_THAT(model.GetSortedBy(), ElementsAre(GridSortKey{1, false}));
}

// Comparisons that contradict themselves lose no item; consistent ones sort, and keep equal items in order.
TEST(MergeSort, SortsAndSurvivesAnyComparison)
{
    std::mt19937 random(1);
    for (const std::size_t count : {0U, 1U, 2U, 7U, 8U, 9U, 16U, 17U, 100U, 1000U, 4097U})
    {
        std::vector<unsigned> items(count);
        std::iota(items.begin(), items.end(), 0U);
        std::shuffle(items.begin(), items.end(), random);
        std::vector<unsigned> expected = items;
        const auto byTens = [](unsigned a, unsigned b) { return a / 10 < b / 10; };
        std::stable_sort(expected.begin(), expected.end(), byTens);
        MergeSort(std::span(items), byTens);
        ASSERT_EQ(items, expected);

        const auto always = [](unsigned, unsigned) { return true; };
        const auto dice = [&random](unsigned, unsigned) { return random() % 2 == 0; };
        MergeSort(std::span(items), always);
        MergeSort(std::span(items), dice);
        std::sort(items.begin(), items.end());
        std::sort(expected.begin(), expected.end());
        ASSERT_EQ(items, expected);
    }
}
} // namespace
