#include "chart/CChartModel.h"

#include <algorithm>
#include <stdexcept>

namespace
{
template <typename Axes>
auto FindFromEnd(Axes axes, std::int32_t identifier) -> decltype(axes.data())
{
    for (std::size_t i = axes.size(); i > 0; --i)
    {
        if (axes[i - 1].identifier == identifier)
        {
            return &axes[i - 1];
        }
    }
    return nullptr;
}

template <typename Element>
const Element& GetElement(std::span<const Element> elements, std::int64_t index)
{
    if (index < 0 || static_cast<std::uint64_t>(index) >= elements.size())
    {
        throw std::invalid_argument("index out of range");
    }
    return elements[static_cast<std::size_t>(index)];
}

void CoverRange(CAxis& axis, double lo, double hi, bool first)
{
    axis.dataMin = first ? lo : std::min(axis.dataMin, lo);
    axis.dataMax = first ? hi : std::max(axis.dataMax, hi);
}
} // namespace

void CChartModel::AddAxis(std::int32_t identifier, bool vertical)
{
    if (FindAxis(identifier) == nullptr)
    {
        std::vector<CAxis>& axes = vertical ? verticalAxes : horizontalAxes;
        axes.emplace_back().identifier = identifier;
    }
    oneAxisPair = horizontalAxes.size() == 1 && verticalAxes.size() == 1;
}

void CChartModel::SetAxisTitle(std::int32_t identifier, std::string_view title, std::string_view unit)
{
    if (CAxis* const axis = FindAxis(identifier))
    {
        axis->title = title;
        axis->unit = unit;
        axis->axisColour = 0xFFFFFF;
        axis->gridColour = 0x808080;
    }
}

void CChartModel::ClearAutomaticPrefix(std::int32_t identifier)
{
    if (CAxis* const axis = FindAxis(identifier))
    {
        axis->automaticPrefix = false;
    }
}

CAxis* CChartModel::FindAxis(Direction direction, std::int32_t identifier)
{
    return FindFromEnd(GetAxes(direction), identifier);
}

const CAxis* CChartModel::FindAxis(Direction direction, std::int32_t identifier) const
{
    return FindFromEnd(GetAxes(direction), identifier);
}

CAxis* CChartModel::FindAxis(std::int32_t identifier)
{
    CAxis* const axis = FindAxis(Direction::Horizontal, identifier);
    return axis != nullptr ? axis : FindAxis(Direction::Vertical, identifier);
}

const CAxis* CChartModel::FindAxis(std::int32_t identifier) const
{
    const CAxis* const axis = FindAxis(Direction::Horizontal, identifier);
    return axis != nullptr ? axis : FindAxis(Direction::Vertical, identifier);
}

std::span<CAxis> CChartModel::GetAxes(Direction direction)
{
    return direction == Direction::Horizontal ? horizontalAxes : verticalAxes;
}

std::span<const CAxis> CChartModel::GetAxes(Direction direction) const
{
    return direction == Direction::Horizontal ? horizontalAxes : verticalAxes;
}

const CAxis& CChartModel::GetAxis(Direction direction, std::int64_t index) const
{
    return GetElement(GetAxes(direction), index);
}

std::int64_t CChartModel::AddCurve(CChartCurve& curve, std::int32_t /*horizontalAxis*/,
                                   std::int32_t verticalAxis)
{
    curves.push_back({&curve, 0, verticalAxis});
    RebuildDataRanges();
    return GetCurveCount() - 1;
}

void CChartModel::RemoveCurves()
{
    curves.clear();
    RebuildDataRanges();
}

void CChartModel::RebuildDataRanges()
{
    for (const Direction direction : {Direction::Horizontal, Direction::Vertical})
    {
        for (CAxis& axis : GetAxes(direction))
        {
            bool first = true;
            for (const CAxisCurve& entry : curves)
            {
                const CurveAxes bound = GetCurveAxes(entry);
                const DataRect& box = entry.curve->bounds;
                if (entry.curve->points.empty())
                {
                    continue; // its bounds are those of nothing, not of the origin
                }
                if (bound.horizontal == &axis)
                {
                    CoverRange(axis, box.xMin, box.xMax, first);
                    first = false;
                }
                else if (bound.vertical == &axis)
                {
                    CoverRange(axis, box.yMin, box.yMax, first);
                    first = false;
                }
            }
            if (first)
            {
                axis.dataMin = axis.dataMax = 0.0;
            }
            if (curves.empty())
            {
                axis.requestedMin = axis.requestedMax = 0.0;
            }
        }
    }
}

const CAxisCurve& CChartModel::GetCurve(std::int64_t index) const
{
    return GetElement(std::span<const CAxisCurve>(curves), index);
}

CurveAxes CChartModel::GetCurveAxes(const CAxisCurve& curve) const
{
    return {FindAxis(Direction::Horizontal, curve.horizontalAxis),
            FindAxis(Direction::Vertical, curve.verticalAxis)};
}

bool CChartModel::MayBeLogarithmic(Direction direction) const
{
    return std::ranges::all_of(GetAxes(direction), [](const CAxis& axis) { return axis.lowerLimit > 0.0; });
}

void CChartModel::SetScaleMode(bool horizontalLogarithmic, bool verticalLogarithmic)
{
    horizontalScale = &::GetScale(horizontalLogarithmic && MayBeLogarithmic(Direction::Horizontal));
    verticalScale = &::GetScale(verticalLogarithmic && MayBeLogarithmic(Direction::Vertical));
    ResetRanges();
}

const IScale& CChartModel::GetScale(Direction direction) const
{
    return direction == Direction::Horizontal ? *horizontalScale : *verticalScale;
}

bool CChartModel::GetAxisRange(std::int32_t identifier, double& lo, double& hi) const
{
    const CAxis* const axis = FindAxis(identifier);
    if (axis == nullptr)
    {
        return false;
    }
    const bool horizontal = FindAxis(Direction::Horizontal, identifier) != nullptr;
    const IScale& scale = GetScale(horizontal ? Direction::Horizontal : Direction::Vertical);
    lo = std::max(scale.GetTickValue(axis->visibleMin, axis->tickStep, -1.0), axis->dataMin);
    hi = std::min(scale.GetTickValue(axis->visibleMax, axis->tickStep, 1.0), axis->dataMax);
    return true;
}

void CChartModel::ResetRanges()
{
    for (const Direction direction : {Direction::Horizontal, Direction::Vertical})
    {
        for (CAxis& axis : GetAxes(direction))
        {
            axis.pixelShift = 0;
            axis.requestedMin = axis.dataMin;
            axis.requestedMax = axis.dataMax;
        }
    }
}
