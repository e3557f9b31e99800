#pragma once

#include "chart/IScale.h"

class CLogarithmicScale final : public IScale
{
public:
    [[nodiscard]] double Transform(double value) const override;
    [[nodiscard]] double ChooseStep(double lo, double hi, int pixels) const override;
    [[nodiscard]] double GetFirstTick(double value, double step) const override;
    [[nodiscard]] double GetLastTick(double value, double step, double firstTick) const override;
    [[nodiscard]] double GetTickValue(double origin, double step, double steps) const override;
    [[nodiscard]] double GetValueAtPixel(int pixel, const AxisPlacement& placement) const override;
    [[nodiscard]] double GetValueAtOffset(double origin, double pixels, double scale) const override;
    [[nodiscard]] double ShiftBack(double origin, double step, int steps) const override;
    [[nodiscard]] bool IsLogarithmic() const override { return true; }
};
