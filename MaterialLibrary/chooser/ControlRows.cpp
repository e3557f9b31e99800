#include "chooser/ControlRows.h"

#include <algorithm>

namespace
{
int AddGap(int width, int gap)
{
    return width > 0 ? width + gap : 0;
}
} // namespace

std::vector<PlacedBlock> PlaceInRows(std::span<const ControlBlock> blocks, int left, int right, int gap)
{
    std::vector<PlacedBlock> placed;
    std::vector<int> spare = {right - left}; // of each row
    for (const ControlBlock& block : blocks)
    {
        const bool isFirst = spare.back() == right - left;
        if (!isFirst && block.leastWidth > spare.back())
        {
            spare.push_back(right - left);
        }
        spare.back() -= AddGap(block.leastWidth, gap);
        placed.push_back({0, static_cast<int>(spare.size()) - 1, block.leastWidth});
    }
    int next = left;
    for (std::size_t i = 0; i < placed.size(); ++i)
    {
        PlacedBlock& block = placed[i];
        int& rest = spare[static_cast<std::size_t>(block.row)];
        const int more = std::clamp(rest + gap, 0, blocks[i].width - block.width);
        rest -= more;
        block.width += more;
        next = i > 0 && placed[i - 1].row != block.row ? left : next;
        block.left = next;
        next += AddGap(block.width, gap);
    }
    return placed;
}
