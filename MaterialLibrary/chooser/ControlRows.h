#pragma once

#include <span>
#include <vector>

// A control with its label, or a few that stay together. Only the width of the last one can be less than
// wanted.
struct ControlBlock
{
    int width = 0;
    int leastWidth = 0;
};

struct PlacedBlock
{
    int left = 0;
    int row = 0; // from 0
    int width = 0;
};

// Places blocks one after the other into rows between two sides, a block that has not even its least width in
// a row into the next one. The first blocks of a row get what is left of it. One without width takes no room.
[[nodiscard]] std::vector<PlacedBlock> PlaceInRows(std::span<const ControlBlock> blocks, int left, int right,
                                                   int gap);
