#pragma once

#include "grid/CGridSelection.h"
#include "grid/GridStyle.h"

#include <cstddef>
#include <deque>
#include <optional>
#include <string>
#include <variant>
#include <vector>

// The last changes of a grid, as what takes them back.
class CGridUndo
{
public:
    struct CellBefore
    {
        GridCell cell;
        GridStyleId style;
        std::string text;
    };
    using OrderBefore = std::vector<int>; // the order that moves the rows back
    using Step = std::variant<CellBefore, OrderBefore>;

    // As many steps are kept; with more the oldest is forgotten.
    static constexpr std::size_t stepLimit = 1000;

    void SetRecording(bool record) { recording = record; }
    [[nodiscard]] bool IsRecording() const { return recording; }

    // Keeps the step. Not to be called while recording is off.
    void Record(Step step);

    // The last step, which is forgotten.
    [[nodiscard]] std::optional<Step> TakeLast();

    void Clear() { steps.clear(); }

private:
    bool recording = false;
    std::deque<Step> steps;
};
