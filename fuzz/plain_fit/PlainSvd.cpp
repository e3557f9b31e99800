#include "fuzz/plain_fit/PlainFit.h"

#include <algorithm>
#include <cmath>

namespace
{
double Hypotenuse(double a, double b)
{
    const double x = std::fabs(a), y = std::fabs(b);
    if (x > y)
    {
        return x * std::sqrt(1.0 + (y / x) * (y / x));
    }
    return y == 0.0 ? 0.0 : y * std::sqrt(1.0 + (x / y) * (x / y));
}
} // namespace

bool DecomposePlainly(PlainMatrix& a, std::vector<double>& target, std::vector<double>& w, PlainMatrix& v)
{
    const int m = static_cast<int>(a.size()), n = static_cast<int>(w.size());
    const auto A = [&](int i, int j) -> double&
    { return a[static_cast<std::size_t>(i)][static_cast<std::size_t>(j)]; };
    const auto V = [&](int i, int j) -> double&
    { return v[static_cast<std::size_t>(i)][static_cast<std::size_t>(j)]; };
    const auto T = [&](int i) -> double& { return target[static_cast<std::size_t>(i)]; };
    const auto W = [&](int i) -> double& { return w[static_cast<std::size_t>(i)]; };
    std::vector<double> off(static_cast<std::size_t>(n));
    const auto E = [&](int i) -> double& { return off[static_cast<std::size_t>(i)]; };

    // Over the whole numbers from `first` up to and without `end`.
    const auto each = [](int first, int end, auto action)
    {
        for (int k = first; k < end; ++k)
        {
            action(k);
        }
    };
    const auto sum = [&](int first, int end, auto term)
    {
        double total = 0.0;
        each(first, end, [&](int k) { total += term(k); });
        return total;
    };

    double norm = 0.0, g = 0.0, scale = 0.0;
    for (int i = 0; i < n; ++i)
    {
        E(i) = scale * g;
        g = 0.0;
        scale = sum(i, m, [&](int k) { return std::fabs(A(k, i)); });
        if (scale != 0.0)
        {
            each(i, m, [&](int k) { A(k, i) /= scale; });
            const double square = sum(i, m, [&](int k) { return A(k, i) * A(k, i); });
            const double f = A(i, i);
            g = f >= 0.0 ? -std::sqrt(square) : std::sqrt(square);
            const double h = f * g - square;
            A(i, i) = f - g;
            for (int j = i + 1; j < n; ++j)
            {
                const double s = sum(i, m, [&](int k) { return A(k, i) * A(k, j); });
                each(i, m, [&](int k) { A(k, j) += s / h * A(k, i); });
            }
            const double t = sum(i, m, [&](int k) { return A(k, i) * T(k); });
            each(i, m, [&](int k) { T(k) += t / h * A(k, i); });
            each(i, m, [&](int k) { A(k, i) *= scale; });
        }
        W(i) = scale * g;
        g = 0.0;
        scale = sum(i + 1, n, [&](int k) { return std::fabs(A(i, k)); });
        if (scale != 0.0)
        {
            each(i + 1, n, [&](int k) { A(i, k) /= scale; });
            const double square = sum(i + 1, n, [&](int k) { return A(i, k) * A(i, k); });
            const double f = A(i, i + 1);
            g = f >= 0.0 ? -std::sqrt(square) : std::sqrt(square);
            const double h = f * g - square;
            A(i, i + 1) = f - g;
            each(i + 1, n, [&](int k) { E(k) = A(i, k) / h; });
            for (int j = i + 1; j < m; ++j)
            {
                const double s = sum(i + 1, n, [&](int k) { return A(j, k) * A(i, k); });
                each(i + 1, n, [&](int k) { A(j, k) += s * E(k); });
            }
            each(i + 1, n, [&](int k) { A(i, k) *= scale; });
        }
        norm = std::max(norm, std::fabs(W(i)) + std::fabs(E(i)));
    }

    for (int i = n - 1; i >= 0; --i)
    {
        if (i < n - 1 && g != 0.0)
        {
            each(i + 1, n, [&](int j) { V(j, i) = (A(i, j) / A(i, i + 1)) / g; });
            for (int j = i + 1; j < n; ++j)
            {
                const double s = sum(i + 1, n, [&](int k) { return A(i, k) * V(k, j); });
                each(i + 1, n, [&](int k) { V(k, j) += s * V(k, i); });
            }
        }
        each(i + 1, n, [&](int j) { V(i, j) = V(j, i) = 0.0; });
        V(i, i) = 1.0;
        g = E(i);
    }

    const auto negligible = [&](double x) { return std::fabs(x) + norm == norm; };
    const auto rotate = [](double& x, double& y, double c, double s)
    {
        const double first = x, second = y;
        x = first * c + second * s;
        y = second * c - first * s;
    };
    for (int k = n - 1; k >= 0; --k)
    {
        for (int iteration = 1;; ++iteration)
        {
            int l = k;
            while (l > 0 && !negligible(E(l)) && !negligible(W(l - 1)))
            {
                --l;
            }
            if (l > 0 && !negligible(E(l)))
            {
                double c = 0.0, s = 1.0;
                for (int i = l; i <= k; ++i)
                {
                    const double f = s * E(i);
                    E(i) = c * E(i);
                    if (negligible(f))
                    {
                        break;
                    }
                    g = W(i);
                    W(i) = Hypotenuse(f, g);
                    c = g / W(i);
                    s = -f / W(i);
                    rotate(T(l - 1), T(i), c, s);
                }
            }
            const double last = W(k);
            if (l == k)
            {
                if (last < 0.0)
                {
                    W(k) = -last;
                    each(0, n, [&](int j) { V(j, k) = -V(j, k); });
                }
                break;
            }
            if (iteration == 30)
            {
                return false;
            }

            double x = W(l), y = W(k - 1), h = E(k);
            g = E(k - 1);
            double f = ((y - last) * (y + last) + (g - h) * (g + h)) / (2.0 * h * y);
            g = Hypotenuse(f, 1.0);
            f = ((x - last) * (x + last) + h * (y / (f + (f >= 0.0 ? g : -g)) - h)) / x;
            double c = 1.0, s = 1.0;
            for (int j = l; j < k; ++j)
            {
                g = E(j + 1);
                y = W(j + 1);
                h = s * g;
                g = c * g;
                E(j) = Hypotenuse(f, h);
                c = f / E(j);
                s = h / E(j);
                f = x * c + g * s;
                g = g * c - x * s;
                h = y * s;
                y = y * c;
                each(0, n, [&](int i) { rotate(V(i, j), V(i, j + 1), c, s); });
                W(j) = Hypotenuse(f, h);
                if (W(j) != 0.0)
                {
                    c = f / W(j);
                    s = h / W(j);
                }
                f = c * g + s * y;
                x = c * y - s * g;
                rotate(T(j), T(j + 1), c, s);
            }
            E(l) = 0.0;
            E(k) = f;
            W(k) = x;
        }
    }
    return true;
}
