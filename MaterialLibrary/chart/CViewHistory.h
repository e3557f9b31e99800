#pragma once

#include "chart/CChartModel.h"

#include <utility>
#include <vector>

// What a chart has shown of its data one after the other, to go back from a zoom.
class CViewHistory
{
public:
    // The view that the chart has now is the first one.
    void Begin(const CChartModel& model);

    // After a zoom; nothing happens when the view is still the same. The oldest of many views are forgotten.
    void Note(const CChartModel& model);

    [[nodiscard]] bool CanGoBack() const { return views.size() > 1; }

    // The axes ask for the view before again; to be laid out afterwards.
    void GoBack(CChartModel& model);

    // The axes ask for the present view again, where they have been reset.
    void Restore(CChartModel& model) const;

private:
    using View = std::vector<std::pair<double, double>>; // of each axis what it asks for

    [[nodiscard]] static View GetView(const CChartModel& model);

    std::vector<View> views; // the last one is the present one
};
