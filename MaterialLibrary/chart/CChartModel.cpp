#include "chart/CChartModel.h"

#include <algorithm>
#include <cmath>
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

// Widens the range min to max so that it covers lo to hi; the first time it becomes just that.
void Cover(double& min, double& max, double lo, double hi, bool first)
{
    min = first ? lo : std::min(min, lo);
    max = first ? hi : std::max(max, hi);
}
} // namespace

void CChartCurve::UpdateBounds()
{
    bounds = {};
    bool first = true;
    for (const DataPoint& point : points)
    {
        if (std::isfinite(point.x) && std::isfinite(point.y))
        {
            Cover(bounds.xMin, bounds.xMax, point.x, point.x, first);
            Cover(bounds.yMin, bounds.yMax, point.y, point.y, first);
            first = false;
        }
    }
}

const DataPoint& CChartCurve::GetPoint(std::int32_t index) const
{
    if (index < 0 || static_cast<std::size_t>(index) >= points.size())
    {
        throw std::out_of_range("invalid vector<T> subscript");
    }
    return points[static_cast<std::size_t>(index)];
}

std::string_view CChartCurve::GetPointLabel(std::int32_t index) const
{
    if (index < 0 || static_cast<std::size_t>(index) >= pointLabels.size())
    {
        return {};
    }
    return pointLabels[static_cast<std::size_t>(index)];
}

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
    ForEachAxis(
        [this](CAxis& axis, const IScale&, Direction)
        {
            axis.dataMin = axis.dataMax = 0.0;
            bool first = true;
            for (const CAxisCurve& entry : curves)
            {
                const CurveAxes bound = GetCurveAxes(entry);
                const bool horizontal = bound.horizontal == &axis;
                if (horizontal || bound.vertical == &axis)
                {
                    const DataRect& box = entry.curve->bounds;
                    Cover(axis.dataMin, axis.dataMax, horizontal ? box.xMin : box.yMin,
                          horizontal ? box.xMax : box.yMax, first);
                    first = false;
                }
            }
            if (curves.empty())
            {
                axis.requestedMin = axis.requestedMax = 0.0;
            }
        });
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
    ForEachAxis(
        [](CAxis& axis, const IScale&, Direction)
        {
            axis.pixelShift = 0;
            axis.kept = {};
            axis.requestedMin = axis.dataMin;
            axis.requestedMax = axis.dataMax;
        });
}
