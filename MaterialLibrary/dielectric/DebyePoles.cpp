#include "dielectric/DebyePoles.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace
{
constexpr double samplesPerDecade = 100.0;

struct Node
{
    double position; // in -1 ... 1
    double weight;   // all add up to 2
};

// The nodes of Gauss and Legendre's rule: the roots of a Legendre polynomial, by Newton's method.
std::vector<Node> FindGaussNodes(int count)
{
    constexpr int steps = 8; // from these starts twice as many as it takes
    std::vector<Node> nodes;
    for (int i = 0; i < count; ++i)
    {
        double x = -std::cos(std::numbers::pi * (i + 0.75) / (count + 0.5));
        double slope = 0.0;
        for (int step = 0; step < steps; ++step)
        {
            double previous = 1.0;
            double polynomial = x;
            for (int k = 2; k <= count; ++k)
            {
                const double next = ((2 * k - 1) * x * polynomial - (k - 1) * previous) / k;
                previous = polynomial;
                polynomial = next;
            }
            slope = count * (x * polynomial - previous) / (x * x - 1.0);
            x -= polynomial / slope;
        }
        nodes.push_back({x, 2.0 / ((1.0 - x * x) * slope * slope)});
    }
    return nodes;
}

std::complex<double> Evaluate(double epsInf, std::span<const DebyePole> poles, double frequency)
{
    std::complex<double> sum = epsInf;
    for (const DebyePole& pole : poles)
    {
        sum += pole.deltaEps / std::complex(1.0, frequency / pole.frequency);
    }
    return sum;
}
} // namespace

// A term is an integral over ln f. Its decades are taken one by one: more nodes on a longer way gain less.
std::vector<DebyePole> ExpandIntoPoles(const CWidebandDebyeModel& model, int perDecade)
{
    const std::vector<Node> nodes = FindGaussNodes(perDecade);
    std::vector<DebyePole> poles;
    for (const MLDEBYETERM& term : model.GetTerms())
    {
        if (term.deltaEps == 0.0)
        {
            continue;
        }
        const double width = std::log(term.f2 / term.f1);
        const int parts = std::max(1, static_cast<int>(std::lround(width / std::numbers::ln10)));
        for (int part = 0; part < parts; ++part)
        {
            for (const Node& node : nodes)
            {
                const double place = (part + (1.0 + node.position) / 2.0) / parts;
                poles.push_back(
                    {term.f1 * std::exp(place * width), term.deltaEps * node.weight / (2.0 * parts)});
            }
        }
    }
    return poles;
}

double FindWorstError(const CWidebandDebyeModel& model, std::span<const DebyePole> poles, double lowest,
                      double highest)
{
    const double width = std::log(highest) - std::log(lowest); // their ratio may be beyond any number
    const int samples = static_cast<int>(std::ceil(width / std::numbers::ln10 * samplesPerDecade)) + 1;
    double worst = 0.0;
    for (int i = 0; i <= samples; ++i)
    {
        const double frequency = std::min(lowest * std::exp(width * i / samples), highest);
        const std::complex<double> exact = model.Evaluate(frequency);
        const double error = std::abs(Evaluate(model.GetEpsInf(), poles, frequency) - exact);
        worst = std::max(worst, error > 0.0 ? error / std::abs(exact) : 0.0);
    }
    return worst;
}
