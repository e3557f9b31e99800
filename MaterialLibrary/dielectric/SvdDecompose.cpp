#include "dielectric/SvdDecompose.h"

#include <algorithm>
#include <cmath>

namespace
{
// Reflects the numbers from `first` to `end` of a column at a vector.
void Reflect(const double* vector, double divisor, double* column, int first, int end)
{
    double s = 0.0;
    for (int k = first; k < end; ++k)
    {
        s += vector[k] * column[k];
    }
    const double factor = s / divisor;
    for (int k = first; k < end; ++k)
    {
        column[k] += factor * vector[k];
    }
}

void Rotate(double& first, double& second, double c, double s)
{
    const double x = first;
    const double y = second;
    first = x * c + y * s;
    second = y * c - x * s;
}

class CGolubReinsch
{
public:
    CGolubReinsch(MatrixOfColumns a_, LeftSteps& left_, std::span<double> w_, MatrixOfColumns v_,
                  std::span<double> scratch)
        : a(a_), v(v_), m(a_.height), n(static_cast<int>(w_.size())), left(left_), w(w_.data()),
          e(scratch.data()), products(e + n)
    {
        left.reflections.clear();
        left.rotations.clear();
    }

    // False where a singular value has not converged at the 30th iteration.
    [[nodiscard]] bool Decompose()
    {
        Bidiagonalise();
        AccumulateRight();
        for (int k = n - 1; k >= 0; --k)
        {
            if (!Converge(k))
            {
                return false;
            }
        }
        return true;
    }

private:
    static constexpr int maxIterations = 30;

    static double Hypotenuse(double x, double y)
    {
        const bool firstIsLarger = std::fabs(x) > std::fabs(y);
        const double larger = std::fabs(firstIsLarger ? x : y);
        const double smaller = std::fabs(firstIsLarger ? y : x);
        if (larger == 0.0)
        {
            return 0.0;
        }
        const double ratio = smaller / larger;
        return larger * std::sqrt(1.0 + ratio * ratio);
    }

    bool Negligible(double x) const { return std::fabs(x) + norm == norm; }

    void Bidiagonalise()
    {
        norm = 0.0;
        double beside = 0.0;
        for (int i = 0; i < n; ++i)
        {
            e[i] = beside;
            w[i] = ReflectColumn(i);
            beside = ReflectRow(i);
            norm = std::max(norm, std::fabs(w[i]) + std::fabs(e[i]));
        }
    }

    // Householder reflection that clears column i below the diagonal; the vector stays in the column.
    double ReflectColumn(int i)
    {
        double scale = 0.0;
        for (int k = i; k < m; ++k)
        {
            scale += std::fabs(a(k, i));
        }
        if (scale == 0.0)
        {
            return 0.0;
        }
        double s = 0.0;
        for (int k = i; k < m; ++k)
        {
            a(k, i) /= scale;
            s += a(k, i) * a(k, i);
        }
        const double f = a(i, i);
        const double g = f < 0.0 ? std::sqrt(s) : -std::sqrt(s);
        const double h = f * g - s;
        a(i, i) = f - g;
        for (int j = i + 1; j < n; ++j)
        {
            Reflect(a.Column(i), h, a.Column(j), i, m);
        }
        left.reflections.push_back({i, h});
        return scale * g;
    }

    // Householder reflection that clears row i right of the element beside the diagonal.
    double ReflectRow(int i)
    {
        double scale = 0.0;
        for (int k = i + 1; k < n; ++k)
        {
            scale += std::fabs(a(i, k));
        }
        if (scale == 0.0)
        {
            return 0.0;
        }
        double s = 0.0;
        for (int k = i + 1; k < n; ++k)
        {
            a(i, k) /= scale;
            s += a(i, k) * a(i, k);
        }
        const double f = a(i, i + 1);
        const double g = f < 0.0 ? std::sqrt(s) : -std::sqrt(s);
        const double h = f * g - s;
        a(i, i + 1) = f - g;
        for (int k = i + 1; k < n; ++k)
        {
            e[k] = a(i, k) / h;
        }
        // Down the columns, each row's product growing by one column after the other.
        std::fill_n(products, m, 0.0);
        for (int k = i + 1; k < n; ++k)
        {
            for (int j = i + 1; j < m; ++j)
            {
                products[j] += a(j, k) * a(i, k);
            }
        }
        for (int k = i + 1; k < n; ++k)
        {
            for (int j = i + 1; j < m; ++j)
            {
                a(j, k) += products[j] * e[k];
            }
        }
        for (int k = i + 1; k < n; ++k)
        {
            a(i, k) *= scale;
        }
        return scale * g;
    }

    void AccumulateRight()
    {
        for (int i = n - 1; i >= 0; --i)
        {
            if (i < n - 1 && e[i + 1] != 0.0)
            {
                // Two divisions, so that a tiny product does not underflow.
                for (int j = i + 1; j < n; ++j)
                {
                    v(j, i) = a(i, j) / a(i, i + 1) / e[i + 1];
                }
                for (int j = i + 1; j < n; ++j)
                {
                    double s = 0.0;
                    for (int k = i + 1; k < n; ++k)
                    {
                        s += a(i, k) * v(k, j);
                    }
                    for (int k = i + 1; k < n; ++k)
                    {
                        v(k, j) += s * v(k, i);
                    }
                }
            }
            for (int j = i + 1; j < n; ++j)
            {
                v(i, j) = v(j, i) = 0.0;
            }
            v(i, i) = 1.0;
        }
    }

    // Iterates until the k-th singular value stands alone.
    bool Converge(int k)
    {
        for (int iteration = 1;; ++iteration)
        {
            const int l = Split(k);
            if (l == k)
            {
                break;
            }
            if (iteration == maxIterations)
            {
                return false;
            }
            Sweep(l, k);
        }
        if (w[k] < 0.0)
        {
            w[k] = -w[k];
            for (int j = 0; j < n; ++j)
            {
                v(j, k) = -v(j, k);
            }
        }
        return true;
    }

    // The first row of the block that ends with row k and does not fall into parts.
    int Split(int k)
    {
        int l = k;
        while (l > 0 && !Negligible(e[l]))
        {
            if (Negligible(w[l - 1]))
            {
                Cancel(l, k);
                break;
            }
            --l;
        }
        return l;
    }

    // Rotates e[l] away where w[l - 1] is negligible.
    void Cancel(int l, int k)
    {
        double c = 0.0;
        double s = 1.0;
        for (int i = l; i <= k; ++i)
        {
            const double f = s * e[i];
            e[i] = c * e[i];
            if (Negligible(f))
            {
                break;
            }
            const double g = w[i];
            w[i] = Hypotenuse(f, g);
            c = g / w[i];
            s = -f / w[i];
            left.rotations.push_back({l - 1, i, c, s});
        }
    }

    // One implicit-shift QR sweep over the rows l to k.
    void Sweep(int l, int k)
    {
        double f = Shift(l, k);
        double x = w[l];
        double c = 1.0;
        double s = 1.0;
        for (int j = l; j < k; ++j)
        {
            double g = c * e[j + 1];
            double h = s * e[j + 1];
            double y = w[j + 1];
            e[j] = Hypotenuse(f, h);
            c = f / e[j];
            s = h / e[j];
            f = x * c + g * s;
            g = g * c - x * s;
            h = y * s;
            y = y * c;
            for (int i = 0; i < n; ++i)
            {
                Rotate(v(i, j), v(i, j + 1), c, s);
            }
            w[j] = Hypotenuse(f, h);
            if (w[j] != 0.0)
            {
                c = f / w[j];
                s = h / w[j];
            }
            f = c * g + s * y;
            x = c * y - s * g;
            left.rotations.push_back({j, j + 1, c, s});
        }
        e[l] = 0.0;
        e[k] = f;
        w[k] = x;
    }

    double Shift(int l, int k) const
    {
        const double x = w[l];
        const double y = w[k - 1];
        const double z = w[k];
        const double g = e[k - 1];
        const double h = e[k];
        const double f = ((y - z) * (y + z) + (g - h) * (g + h)) / (2.0 * h * y);
        const double root = Hypotenuse(f, 1.0);
        return ((x - z) * (x + z) + h * (y / (f < 0.0 ? f - root : f + root) - h)) / x;
    }

    MatrixOfColumns a;
    MatrixOfColumns v;
    int m;
    int n;
    LeftSteps& left;
    double* w;
    double* e;        // e[i] stands beside w[i], in its column; e[0] is 0.
    double* products; // of one row with all others
    double norm = 0.0;
};
} // namespace

bool SvdDecompose(MatrixOfColumns a, LeftSteps& left, std::span<double> w, MatrixOfColumns v,
                  std::span<double> scratch)
{
    return CGolubReinsch(a, left, w, v, scratch).Decompose();
}

void ApplyLeft(std::span<const double> a, const LeftSteps& left, std::span<double> target)
{
    for (const LeftSteps::Reflection& reflection : left.reflections)
    {
        const std::size_t column = static_cast<std::size_t>(reflection.column) * target.size();
        Reflect(a.data() + column, reflection.divisor, target.data(), reflection.column,
                static_cast<int>(target.size()));
    }
    for (const LeftSteps::Rotation& rotation : left.rotations)
    {
        Rotate(target[static_cast<std::size_t>(rotation.first)],
               target[static_cast<std::size_t>(rotation.second)], rotation.c, rotation.s);
    }
}
