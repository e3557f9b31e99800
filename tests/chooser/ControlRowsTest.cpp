#include "chooser/ControlRows.h"

#include <gmock/gmock.h>

namespace
{
TEST(ControlRows, BlocksShrinkBeforeTheyTakeAnotherRow)
{
    const ControlBlock blocks[] = {{100, 60}, {0, 0}, {50, 50}, {80, 40}};
    const auto describe = [&](int right)
    {
        std::vector<std::string> lines;
        for (const PlacedBlock& block : PlaceInRows(blocks, 10, right, 5))
        {
            lines.push_back(std::to_string(block.row) + ": " + std::to_string(block.left) + "+" +
                            std::to_string(block.width));
        }
        return lines;
    };
    using testing::ElementsAre;
    EXPECT_THAT(describe(250), ElementsAre("0: 10+100", "0: 115+0", "0: 115+50", "0: 170+80"));
    EXPECT_THAT(describe(230), ElementsAre("0: 10+100", "0: 115+0", "0: 115+50", "0: 170+60"));
    EXPECT_THAT(describe(180), ElementsAre("0: 10+70", "0: 85+0", "0: 85+50", "0: 140+40"));
    EXPECT_THAT(describe(169), ElementsAre("0: 10+100", "0: 115+0", "0: 115+50", "1: 10+80"));
    EXPECT_THAT(describe(100), ElementsAre("0: 10+90", "0: 105+0", "1: 10+50", "2: 10+80"));
    EXPECT_THAT(describe(20), ElementsAre("0: 10+60", "1: 10+0", "1: 10+50", "2: 10+40")) << "no less";
}
} // namespace
