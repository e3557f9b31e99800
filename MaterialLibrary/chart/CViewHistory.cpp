#include "chart/CViewHistory.h"

namespace
{
constexpr std::size_t mostViews = 100;
}

void CViewHistory::Begin(const CChartModel& model)
{
    views = {GetView(model)};
}

void CViewHistory::Note(const CChartModel& model)
{
    View view = GetView(model);
    if (!views.empty() && views.back() == view)
    {
        return;
    }
    views.push_back(std::move(view));
    if (views.size() > mostViews)
    {
        views.erase(views.begin());
    }
}

void CViewHistory::GoBack(CChartModel& model)
{
    if (CanGoBack())
    {
        views.pop_back();
        Restore(model);
    }
}

void CViewHistory::Restore(CChartModel& model) const
{
    if (views.empty())
    {
        return;
    }
    auto range = views.back().begin();
    model.ForEachAxis(
        [&](CAxis& axis, const IScale&, Direction)
        {
            if (range != views.back().end())
            {
                axis.requestedMin = range->first;
                axis.requestedMax = range->second;
                axis.pixelShift = 0;
                ++range;
            }
        });
}

CViewHistory::View CViewHistory::GetView(const CChartModel& model)
{
    View view;
    for (const Direction direction : directions)
    {
        for (const CAxis& axis : model.GetAxes(direction))
        {
            view.emplace_back(axis.requestedMin, axis.requestedMax);
        }
    }
    return view;
}
