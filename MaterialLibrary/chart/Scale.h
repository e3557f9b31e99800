#pragma once

#include <cstdint>

// The arithmetic of an axis's ticks. It knows no chart: ranges, steps and lengths are numbers.

// Floor and ceiling of quotients of measured numbers: what is within 1e-12 of a whole number counts as that
// number. Every floor and ceiling of tick arithmetic goes through these two.
[[nodiscard]] double FloorTolerant(double value);
[[nodiscard]] double CeilTolerant(double value);

// 10 to the power of the exponent; exact for whole exponents to 22 and correctly rounded down to -22,
// whatever the C library.
[[nodiscard]] double RaiseTen(double exponent);

// value * 10^decades. A negative number of decades divides, so that 1e3 less three decades is 1.
[[nodiscard]] double ScaleByDecades(double value, double decades);

// The smallest double above 0: as the lower limit of an axis that may become logarithmic it leaves out no
// value that such an axis can show.
inline constexpr double smallestPositiveDouble = 0x1p-1074;

// How many steps cover a linear range, from the tick at or below `lo` to the tick at or above `hi`.
struct IntervalCount
{
    std::int32_t count = 0; // 2147483647 where there are more, or where the range is not finite
    double span = 0.0;      // from the first to the last tick
};

[[nodiscard]] IntervalCount CountIntervals(double lo, double hi, double step);

// The step, of 1, 2, 2.5 or 5 times a power of ten, whose ticks reach least beyond [lo, hi] with at least 20
// pixels and at most half the length per interval; the finer one of two equally good steps.
// std::invalid_argument where there is none: lo not below hi, or not finite.
[[nodiscard]] double ChooseLinearStep(double lo, double hi, int pixels);

// Decades from one tick to the next so that at least 20 pixels lie between, for 0 < lo < hi.
[[nodiscard]] double ChooseDecadeStride(double lo, double hi, int pixels);

// The finest of 0.1, 0.2, 0.25 and 0.5 for which the minor ticks, which stand at the multiples of ten times
// it within a decade, keep 10 pixels of distance at the decade's end; 0 for no minor ticks.
[[nodiscard]] double ChooseMinorDecadeStep(double pixelsPerDecade);

// Into how many parts to divide what is `intervalLength` long, when parts of 1 are the smallest allowed and
// `budget` is the room for all of it: at most 10, and on a linear axis a number that goes well with the
// step's digits, so that multiples of it are round numbers. Used both ways: every so manyth tick has a
// label, and an interval has so many minor ticks.
[[nodiscard]] int CountSubdivisions(double step, int intervalLength, int budget, bool logarithmic);

// Where an axis stands on the screen.
struct AxisPlacement
{
    int pixel = 0;      // where the origin value stands
    int sign = 1;       // +1 when values grow with pixels, -1 when against them
    double scale = 1.0; // pixels per unit, or per decade
    double step = 1.0;  // from tick to tick, in units or decades
    double value = 0.0; // the origin value

    // How many whole pixels a tick stands from the origin's, in the direction of growing values.
    [[nodiscard]] double GetTickOffset(double tick) const;

    // How many ticks lie between the origin and a pixel. Ticks stand on whole pixels, and between two of
    // them the number is interpolated from one's pixel to the other's, so that it is whole on every tick.
    [[nodiscard]] double GetTicksAtPixel(int at) const;
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
