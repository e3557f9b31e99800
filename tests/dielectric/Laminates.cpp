#include "tests/dielectric/Laminates.h"

#include <algorithm>
#include <array>

namespace
{
// splitmix64
class CDice
{
public:
    explicit CDice(std::uint64_t seed) : state(seed) {}

    int Between(int low, int high)
    {
        state += 0x9E3779B97F4A7C15u;
        std::uint64_t z = state;
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9u;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBu;
        z ^= z >> 31;
        return low + static_cast<int>(z % static_cast<std::uint64_t>(high - low + 1));
    }

private:
    std::uint64_t state;
};

constexpr int stepsPerDecade = 24;
constexpr std::array<int, stepsPerDecade> steps{10, 11, 12, 13, 15, 16, 18, 20, 22, 24, 27, 30,
                                                33, 36, 39, 43, 47, 51, 56, 62, 68, 75, 82, 91};

double Frequency(int step)
{
    double f = steps[static_cast<std::size_t>(step % stepsPerDecade)];
    for (int decade = 1; decade < step / stepsPerDecade; ++decade)
    {
        f *= 10.0;
    }
    return f;
}
} // namespace

Laminate MakeLaminate(std::uint64_t seed, int lossPoints)
{
    CDice dice(seed * 2654435761u + 17u);
    if (lossPoints == 0)
    {
        lossPoints = dice.Between(2, 40);
    }
    const int lowest = stepsPerDecade * dice.Between(4, 9) + (dice.Between(0, 1) ? dice.Between(0, 23) : 0);
    const int narrowest = lossPoints > stepsPerDecade ? 2 * stepsPerDecade : stepsPerDecade;
    const int span = std::max(narrowest, std::min(stepsPerDecade * dice.Between(1, 6), 263 - lowest));

    // Permittivity in thousandths, loss tangent in units of 1e-4, both linear in the logarithm of the
    // frequency.
    const int loss = dice.Between(0, 2) ? dice.Between(10, 250) : dice.Between(1, 30);
    const int lossPerDecade = dice.Between(0, 3) ? dice.Between(-loss / 6, loss / 3) : 0;
    const int lossNoise = dice.Between(0, 2) ? loss / 20 : loss / 4;
    const int er = dice.Between(2100, 10500);
    const int erPerDecade = dice.Between(0, 9) ? er * loss / 10000 * 3 / 2 : dice.Between(-er / 6, er / 60);
    const int erPoints = dice.Between(0, 3) ? lossPoints : dice.Between(1, 6);

    const auto stepOf = [&](int k, int points) { return points < 2 ? span / 2 : k * span / (points - 1); };
    Laminate laminate;
    for (int k = 0; k < erPoints; ++k)
    {
        const int at = stepOf(k, erPoints);
        const int value = er - erPerDecade * at / stepsPerDecade + dice.Between(-er / 400, er / 400);
        laminate.er.push_back({Frequency(lowest + at), std::max(value, 1000) / 1000.0});
    }
    for (int k = 0; k < lossPoints; ++k)
    {
        const int at = stepOf(k, lossPoints);
        const int value = loss + lossPerDecade * at / stepsPerDecade + dice.Between(-lossNoise, lossNoise);
        laminate.loss.push_back({Frequency(lowest + at), std::max(value, 1) / 10000.0});
    }
    return laminate;
}
