#include "fuzz/plain_fit/PlainFit.h"

#include <algorithm>
#include <cmath>

bool PlainFit::PrepareTrend(std::span<const MLTBLENTRY> er)
{
    trendOffset = er[0].value;
    trendSlope = 0.0;
    if (er.size() < 2)
    {
        return true;
    }
    double sx = 0.0, sy = 0.0, sxy = 0.0, sxx = 0.0;
    bool level = true;
    for (const auto& [f, value] : er)
    {
        if (f <= 0.0 || value <= 0.0)
        {
            return false;
        }
        const double x = std::log(f);
        sx += x;
        sy += value;
        sxy += x * value;
        sxx += x * x;
        level = level && value == er[0].value;
    }
    if (level)
    {
        return true;
    }
    const double n = static_cast<double>(er.size());
    const double det = n * sxx - sx * sx;
    if (sxx == 0.0 || det / sxx < 1e-6)
    {
        trendOffset = sy / n;
        return true;
    }
    trendSlope = (n * sxy - sx * sy) / det;
    trendOffset = (sy * sxx - sxy * sx) / det;
    if (trendSlope > 0.0 || trendOffset <= 0.0 || trendOffset + trendSlope * std::log(1.0e11) < 0.0)
    {
        trendSlope = 0.0;
        trendOffset = sy;
    }
    return true;
}

bool PlainFit::Prepare(std::span<const MLTBLENTRY> er, std::span<const MLTBLENTRY> loss)
{
    if (er.empty() || loss.size() < 2 || !PrepareTrend(er))
    {
        return false;
    }
    std::size_t first = 0;
    while (first < loss.size() && !(loss[first].frequency >= 10000.0))
    {
        ++first;
    }
    if (loss.size() - first < 2)
    {
        return false;
    }
    for (const auto& [f, tangent] : loss.subspan(first))
    {
        const double d = trendOffset + trendSlope * std::log(f);
        frequencies.push_back(f);
        realParts.push_back(d * std::cos(tangent));
        imaginaryParts.push_back(-d * std::sin(tangent));
    }
    ready = true;
    return true;
}

bool PlainFit::Solve(PlainMatrix system, std::vector<double> target, double ratio,
                     std::vector<double>& amplitudes)
{
    const std::size_t n = amplitudes.size();
    PlainMatrix v(n, std::vector<double>(n));
    std::vector<double> w(n), c(n);
    if (!DecomposePlainly(system, target, w, v))
    {
        return false;
    }
    const double largest = *std::max_element(w.begin(), w.end());
    for (std::size_t j = 0; j < n; ++j)
    {
        c[j] = target[j] / w[j];
    }
    // A value that counts as zero takes its vector with it, which may be past all numbers on absurd data.
    for (std::size_t k = 0; k < n; ++k)
    {
        amplitudes[k] = 0.0;
        for (std::size_t j = 0; j < n; ++j)
        {
            if (w[j] > ratio * w[0] && !(w[j] < 1e-12 * largest))
            {
                amplitudes[k] += v[k][j] * c[j];
            }
        }
    }
    return true;
}

std::vector<double> PlainFit::Corners() const
{
    const double low = std::floor(std::log10(frequencies.front())) - 1.0;
    const double high = std::ceil(std::log10(frequencies.back())) + 1.0;
    if (!(high - low >= 2.0 && high - low <= 40.0))
    {
        return {};
    }
    const std::size_t n = static_cast<std::size_t>(high - low);
    std::vector<double> corner(n + 1);
    for (std::size_t k = 0; k <= n; ++k)
    {
        double exponent = low + static_cast<double>(k);
        if (n >= 6)
        {
            exponent = exponent + 1.0;
        }
        else if (k == n - 1)
        {
            exponent = high;
        }
        else if (k == n)
        {
            exponent = high + 2.0;
        }
        corner[k] = std::pow(10.0, exponent);
    }
    return corner;
}

PlainMatrix PlainFit::System(const std::vector<double>& corner) const
{
    const std::size_t m = frequencies.size(), n = corner.size() - 1;
    PlainMatrix full(m + n, std::vector<double>(n, 0.0));
    for (std::size_t i = 0; i < m; ++i)
    {
        for (std::size_t k = 0; k < n; ++k)
        {
            full[i][k] = (std::atan(frequencies[i] / corner[k + 1]) - std::atan(frequencies[i] / corner[k])) /
                         std::log(corner[k + 1] / corner[k]);
        }
    }
    for (std::size_t k = 0; k < n; ++k)
    {
        full[m + k][k] = 0.01 * 2.0;
        if (k > 0)
        {
            full[m + k][k - 1] = full[m + k - 1][k] = 0.01 * -1.0;
        }
    }
    return full;
}

bool PlainFit::Fit()
{
    const auto finite = [](double x) { return std::isfinite(x); };
    bool sane = ready;
    for (std::size_t i = 0; i < frequencies.size(); ++i)
    {
        sane = sane && frequencies[i] > 0.0 && finite(frequencies[i]) && finite(realParts[i]) &&
               finite(imaginaryParts[i]);
    }
    const std::vector<double> corner = sane ? Corners() : std::vector<double>{};
    if (corner.empty())
    {
        ready = false;
        return false;
    }
    const PlainMatrix full = System(corner);
    const std::size_t m = frequencies.size(), n = corner.size() - 1;
    std::vector<double> target = imaginaryParts;
    target.resize(m + n, 0.0);

    std::vector<double> x(n);
    double ratio = 0.02;
    for (;;)
    {
        PlainMatrix system = full;
        double smallest = 1e99;
        for (std::size_t attempt = 0; attempt < n - 1; ++attempt)
        {
            if (!Solve(system, target, ratio, x))
            {
                ready = false;
                return false;
            }
            std::size_t where = 0;
            smallest = 1e99;
            for (std::size_t k = 0; k < n; ++k)
            {
                if (x[k] < smallest)
                {
                    smallest = x[k];
                    where = k;
                }
            }
            if (smallest >= 0.0)
            {
                break;
            }
            for (std::vector<double>& row : system)
            {
                row[where] = 0.0;
            }
        }
        bool smooth = true;
        for (std::size_t k = 1; k + 1 < n; ++k)
        {
            if (2.0 * x[k - 1] > x[k] && 2.0 * x[k + 1] > x[k])
            {
                smooth = false;
            }
        }
        if ((smallest >= 0.0 && smooth && 2.0 * x[n - 2] > x[n - 1]) || !(ratio < 0.1))
        {
            break;
        }
        ratio = ratio * 1.1;
    }

    StoreTerms(corner, x);
    return true;
}

void PlainFit::StoreTerms(const std::vector<double>& corner, const std::vector<double>& amplitudes)
{
    for (std::size_t k = 0; k < amplitudes.size(); ++k)
    {
        terms.push_back({corner[k], corner[k + 1], amplitudes[k], 1.0 / std::log(corner[k + 1] / corner[k])});
    }
    double sum = 0.0;
    for (std::size_t i = 0; i < frequencies.size(); ++i)
    {
        double real = 0.0, imaginary = 0.0;
        Evaluate(frequencies[i], real, imaginary);
        sum += realParts[i] - real;
    }
    epsInf = sum / static_cast<double>(frequencies.size());
}

bool PlainFit::Evaluate(double f, double& real, double& imaginary) const
{
    if (!ready)
    {
        return false;
    }
    real = epsInf;
    imaginary = 0.0;
    for (const PlainTerm& t : terms)
    {
        real += t.deltaEps * t.g * 0.5 * std::log((t.f2 * t.f2 + f * f) / (t.f1 * t.f1 + f * f));
        imaginary += t.deltaEps * t.g * (std::atan(f / t.f2) - std::atan(f / t.f1));
    }
    return true;
}
