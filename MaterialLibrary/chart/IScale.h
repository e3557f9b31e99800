#pragma once

// Where an axis stands on the screen.
struct AxisPlacement
{
    int pixel = 0;      // where the origin value stands
    int sign = 1;       // +1 when values grow with pixels, -1 when against them
    double scale = 1.0; // pixels per unit, or per decade
    double step = 1.0;  // from tick to tick, in units or decades
    double value = 0.0; // the origin value
};

// What a chart's direction needs to know of its scale, for all its axes alike. Ranges are finite and
// ascending, on a logarithmic scale above 0; steps and scales are above 0.
class IScale
{
public:
    // To what is proportional to pixels: the value itself, or its decimal logarithm.
    [[nodiscard]] virtual double Transform(double value) const = 0;

    // The distance of ticks for a range drawn over so many pixels. std::invalid_argument where none fits.
    [[nodiscard]] virtual double ChooseStep(double lo, double hi, int pixels) const = 0;

    // The first tick at or below a value.
    [[nodiscard]] virtual double GetFirstTick(double value, double step) const = 0;

    // The last tick at or above a value, counted from the first tick.
    [[nodiscard]] virtual double GetLastTick(double value, double step, double firstTick) const = 0;

    // The value so many steps from an origin.
    [[nodiscard]] virtual double GetTickValue(double origin, double step, double steps) const = 0;

    // The value at a pixel. A pixel on which a tick stands, or a minor tick of a logarithmic axis, gives
    // exactly that tick's value.
    [[nodiscard]] virtual double GetValueAtPixel(int pixel, const AxisPlacement& placement) const = 0;

    // The value so many pixels from an origin.
    [[nodiscard]] virtual double GetValueAtOffset(double origin, double pixels, double scale) const = 0;

    // The origin shifted back by so many steps, on a tick again.
    [[nodiscard]] virtual double ShiftBack(double origin, double step, int steps) const = 0;

    [[nodiscard]] virtual bool IsLogarithmic() const = 0;

protected:
    ~IScale() = default;
};

// The scale of a direction; it lives as long as the module.
[[nodiscard]] const IScale& GetScale(bool logarithmic);
