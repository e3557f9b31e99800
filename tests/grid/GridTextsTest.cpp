#include "grid/GridTexts.h"

#include "grid/CTypedSearch.h"
#include "grid/ColumnPlaces.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace
{
using testing::ElementsAre;

class GridTexts : public testing::Test
{
protected:
    GridTexts()
    {
        model.Reset(3);
        model.SetRowCount(4);
        model.SetHeaderStyle(1, 1, GridValueType::Number);
        model.HideColumn(2, true);
        model.SetHeaderText(1, "\n");
        model.SetHeaderText(3, "Name");
        for (int row = 1; row <= 4; ++row)
        {
            model.SetCell(row, 1, 0, std::to_string(row));
        }
        model.SetCell(1, 3, 0, "Alpha & \xB0");
        model.SetCell(2, 3, 0, "beta\twith tab");
        model.SetCell(3, 3, 0, "BETA");
    }

    CGridModel model;
};

TEST_F(GridTexts, CopiesRowsWithHeadersAndOneLinePerRow)
{
    const std::vector<int> columns = GetVisibleColumns(model);
    EXPECT_THAT(columns, ElementsAre(1, 3));
    EXPECT_EQ(CopyAsText(model, columns, std::vector<int>{1, 2, 4}),
              " \tName\r\n1\tAlpha & \xB0\r\n2\tbeta with tab\r\n4\t\r\n");
}

TEST_F(GridTexts, FindsTheFirstTextColumnAndRowsByPrefix)
{
    EXPECT_EQ(FindFirstTextColumn(model, GetVisibleColumns(model)), 3);
    model.SetHeaderStyle(3, 3, GridValueType::Mark);
    EXPECT_EQ(FindFirstTextColumn(model, GetVisibleColumns(model)), 0);

    EXPECT_EQ(FindRowByPrefix(model, 3, "Be", 1, false), 2);
    EXPECT_EQ(FindRowByPrefix(model, 3, "bE", 3, false), 3);
    EXPECT_EQ(FindRowByPrefix(model, 3, "b", 4, false), 0);
    EXPECT_EQ(FindRowByPrefix(model, 3, "b", 4, true), 2);
    EXPECT_EQ(FindRowByPrefix(model, 3, "b", 9, true), 2) << "from beyond the last row";
    EXPECT_EQ(FindRowByPrefix(model, 3, "beta\twith tab and more", 1, true), 0);
}

TEST_F(GridTexts, MeasuresTheWidestText)
{
    int measured = 0;
    const auto narrowLetters = [&measured](std::string_view text)
    {
        ++measured;
        return static_cast<int>(text.size()) * (text.front() == 'B' ? 10 : 2);
    };
    EXPECT_EQ(MeasureColumn(model, 3, 9, 10, narrowLetters), 40);
    EXPECT_EQ(measured, 3) << "the empty text needs no measuring";
    EXPECT_EQ(MeasureColumn(model, 3, 2, 10, narrowLetters), 26);
    EXPECT_EQ(MeasureColumn(model, 2, 9, 10, narrowLetters), 0);
}
TEST(ColumnPlaces, AreReadAsTheyAreKept)
{
    const std::vector<ColumnPlace> places = {{9, 2150}, {1, 0}};
    EXPECT_EQ(FormatColumnPlaces(places), "9:2150,1:0");
    EXPECT_EQ(ParseColumnPlaces("9:2150,1:0"), places);
    for (const char* const text : {"", "9", "9:", "9:1,", "9:-1", "9:1 ", "9:100001", "99999999999:1", ":1"})
    {
        EXPECT_EQ(ParseColumnPlaces(text).size(), 0U) << text;
    }
}

TEST(CTypedSearch, CollectsWhatFollowsWithinASecond)
{
    CTypedSearch search;
    EXPECT_FALSE(search.IsGoingOn(5));
    constexpr std::uint32_t start = 0xFFFFFF00; // the clock wraps
    const auto type = [&](wchar_t character, std::uint32_t time)
    {
        search.Add(character, start + time);
        return std::pair(search.GetPrefix(), search.WantsNext());
    };
    using Wanted = std::pair<std::wstring, bool>;
    EXPECT_EQ(type(L'a', 0), Wanted(L"a", true));
    EXPECT_EQ(type(L'a', 900), Wanted(L"a", true)) << "one row after the other";
    EXPECT_TRUE(search.IsGoingOn(start + 1900));
    EXPECT_EQ(type(L' ', 1900), Wanted(L"aa ", false));
    EXPECT_EQ(type(L'b', 2901), Wanted(L"b", true)) << "begins anew";
}
} // namespace
