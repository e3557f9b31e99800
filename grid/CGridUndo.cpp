#include "grid/CGridUndo.h"

void CGridUndo::Record(Step step)
{
    if (steps.size() == stepLimit)
    {
        steps.pop_front();
    }
    steps.push_back(std::move(step));
}

std::optional<CGridUndo::Step> CGridUndo::TakeLast()
{
    if (steps.empty())
    {
        return std::nullopt;
    }
    std::optional<Step> last = std::move(steps.back());
    steps.pop_back();
    return last;
}
