// One fit (prepare, fit, one evaluation): ours against the same passes with another library's singular value
// decomposition, made anew at every solve, as the passes are written down, and made once for each set of
// columns, as ours does: what is left then is the worth of our own code. Laminates that share their
// frequencies are fitted one by one and by a fitter that knows them. The peers take the unsorted first
// singular value's part with their largest one, since theirs are sorted; on most laminates that is the same.

#include "bench/RatioTable.h"
#include "dielectric/CModelFitter.h"
#include "fuzz/plain_fit/PlainFit.h"
#include "tests/dielectric/Laminates.h"

#include <Eigen/SVD>
#include <algorithm>
#include <array>
#include <benchmark/benchmark.h>
#include <cstdio>
#include <lapacke.h>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

namespace
{
constexpr std::array<int, 4> sizes{5, 10, 20, 40};
constexpr double wantedFrequency = 2.5e9;
constexpr int repetitions = 11;

std::vector<Laminate> MakeLaminates(int points)
{
    constexpr std::uint64_t laminateCount = 64;
    std::vector<Laminate> laminates;
    for (std::uint64_t seed = 0; seed < laminateCount; ++seed)
    {
        laminates.push_back(MakeLaminate(seed, points));
    }
    return laminates;
}

std::vector<Laminate> ShareFrequencies(std::vector<Laminate> laminates)
{
    for (Laminate& laminate : laminates)
    {
        for (std::size_t i = 0; i < laminate.loss.size(); ++i)
        {
            laminate.loss[i].frequency = laminates.front().loss[i].frequency;
        }
    }
    return laminates;
}

double Evaluate(const std::optional<CWidebandDebyeModel>& model)
{
    if (!model)
    {
        throw std::runtime_error("a laminate was refused");
    }
    const std::complex<double> eps = model->Evaluate(wantedFrequency);
    return eps.real() + eps.imag();
}

struct OurFit
{
    static std::string Name() { return "ours"; }

    double operator()(const Laminate& laminate) const
    {
        return Evaluate(CWidebandDebyeModel::Fit(PrepareData(laminate.er, laminate.loss)));
    }
};

template <bool keeps>
struct OurFitOfShared
{
    static constexpr bool sharesFrequencies = true;
    static std::string Name() { return keeps ? "ours, frequencies known" : "ours, frequencies shared"; }

    double operator()(const Laminate& laminate)
    {
        const PreparedData data = PrepareData(laminate.er, laminate.loss);
        return Evaluate(keeps ? fitter.Fit(data) : CWidebandDebyeModel::Fit(data));
    }

    CModelFitter fitter;
};

class EigenSvd
{
public:
    static constexpr const char* name = "Eigen::JacobiSVD";

    EigenSvd(Eigen::Index rows, Eigen::Index columns)
        : svd(rows, columns, Eigen::ComputeThinU | Eigen::ComputeThinV)
    {
    }

    void Decompose(const Eigen::MatrixXd& system) { svd.compute(system); }
    const Eigen::VectorXd& Values() const { return svd.singularValues(); }
    const Eigen::MatrixXd& U() const { return svd.matrixU(); }
    const Eigen::MatrixXd& V() const { return svd.matrixV(); }

private:
    Eigen::JacobiSVD<Eigen::MatrixXd> svd;
};

class LapackSvd
{
public:
    static constexpr const char* name = "LAPACK dgesvd";

    LapackSvd(Eigen::Index rows, Eigen::Index columns)
        : w(columns), u(rows, columns), vt(columns, columns), work(1)
    {
        Eigen::MatrixXd system(rows, columns);
        Call(system, -1);
        work.resize(static_cast<Eigen::Index>(work[0]));
    }

    void Decompose(Eigen::MatrixXd system) { Call(system, static_cast<lapack_int>(work.size())); }
    const Eigen::VectorXd& Values() const { return w; }
    const Eigen::MatrixXd& U() const { return u; }
    auto V() const { return vt.transpose(); }

private:
    void Call(Eigen::MatrixXd& system, lapack_int workSize)
    {
        const lapack_int m = static_cast<lapack_int>(system.rows());
        const lapack_int n = static_cast<lapack_int>(system.cols());
        if (LAPACKE_dgesvd_work(LAPACK_COL_MAJOR, 'S', 'S', m, n, system.data(), m, w.data(), u.data(), m,
                                vt.data(), n, work.data(), workSize) != 0)
        {
            throw std::runtime_error("dgesvd did not converge");
        }
    }

    Eigen::VectorXd w;
    Eigen::MatrixXd u;
    Eigen::MatrixXd vt;
    Eigen::VectorXd work;
};

// What a set of columns gives, whatever the ratio.
struct Decomposition
{
    Eigen::VectorXd values, projected; // projected: U^T * target
    Eigen::MatrixXd v;
};

// Decompositions of a system without some of its columns.
template <class Svd, bool keeps>
class CPeerDecompositions
{
public:
    CPeerDecompositions(const Eigen::MatrixXd& full_, const Eigen::VectorXd& target_)
        : full(full_), target(target_), svd(full_.rows(), full_.cols())
    {
    }

    const Decomposition& Of(unsigned removed)
    {
        Decomposition& entry = kept[keeps ? removed : 0];
        if (!keeps || entry.values.size() == 0)
        {
            Eigen::MatrixXd system = full;
            for (Eigen::Index k = 0; k < system.cols(); ++k)
            {
                if ((removed >> k & 1) != 0)
                {
                    system.col(k).setZero();
                }
            }
            svd.Decompose(system);
            entry = {svd.Values(), svd.U().transpose() * target, svd.V()};
        }
        return entry;
    }

private:
    const Eigen::MatrixXd& full;
    const Eigen::VectorXd& target;
    Svd svd;
    std::map<unsigned, Decomposition> kept;
};

template <class Svd, bool keeps>
std::vector<double> SearchPlainly(const Eigen::MatrixXd& full, const Eigen::VectorXd& target)
{
    const Eigen::Index n = full.cols();
    CPeerDecompositions<Svd, keeps> decompositions(full, target);
    Eigen::VectorXd x(n);
    Eigen::VectorXd c(n);
    for (double ratio = 0.02;; ratio *= 1.1)
    {
        unsigned removed = 0;
        double smallest = 0.0;
        for (Eigen::Index attempt = 0; attempt < n - 1; ++attempt)
        {
            const Decomposition& found = decompositions.Of(removed);
            for (Eigen::Index j = 0; j < n; ++j)
            {
                c[j] = found.values[j] > ratio * found.values[0] ? found.projected[j] / found.values[j] : 0.0;
            }
            x.noalias() = found.v * c;
            Eigen::Index where = 0;
            smallest = x.minCoeff(&where);
            if (smallest >= 0.0)
            {
                break;
            }
            removed |= 1u << where;
        }
        bool smooth = smallest >= 0.0 && 2.0 * x[n - 2] > x[n - 1];
        for (Eigen::Index k = 1; k + 1 < n; ++k)
        {
            smooth = smooth && !(2.0 * x[k - 1] > x[k] && 2.0 * x[k + 1] > x[k]);
        }
        if (smooth || !(ratio < 0.1))
        {
            return {x.begin(), x.end()};
        }
    }
}

template <class Svd, bool keeps>
struct PlainFitWith
{
    static std::string Name() { return Svd::name + std::string(keeps ? ", kept" : ""); }

    double operator()(const Laminate& laminate) const
    {
        PlainFit fit;
        if (!fit.Prepare(laminate.er, laminate.loss))
        {
            throw std::runtime_error("a laminate was refused");
        }
        const std::vector<double> corners = fit.Corners();
        const PlainMatrix rows = fit.System(corners);
        const Eigen::Index n = static_cast<Eigen::Index>(corners.size()) - 1;
        Eigen::MatrixXd system(static_cast<Eigen::Index>(rows.size()), n);
        Eigen::VectorXd target = Eigen::VectorXd::Zero(system.rows());
        for (std::size_t i = 0; i < rows.size(); ++i)
        {
            system.row(static_cast<Eigen::Index>(i)) =
                Eigen::Map<const Eigen::RowVectorXd>(rows[i].data(), n);
        }
        std::copy(fit.imaginaryParts.begin(), fit.imaginaryParts.end(), target.begin());
        fit.StoreTerms(corners, SearchPlainly<Svd, keeps>(system, target));
        double real = 0.0, imaginary = 0.0;
        fit.Evaluate(wantedFrequency, real, imaginary);
        return real + imaginary;
    }
};

template <class Fit>
void Measure(benchmark::State& state)
{
    std::vector<Laminate> laminates = MakeLaminates(static_cast<int>(state.range(0)));
    if constexpr (requires { Fit::sharesFrequencies; })
    {
        laminates = ShareFrequencies(std::move(laminates));
    }
    Fit fit;
    std::size_t next = 0;
    for (auto _ : state)
    {
        benchmark::DoNotOptimize(fit(laminates[next]));
        next = (next + 1) % laminates.size();
    }
}

template <class Fit>
void Register()
{
    for (const int size : sizes)
    {
        benchmark::RegisterBenchmark(Fit::Name().c_str(), Measure<Fit>)
            ->Arg(size)
            ->Unit(benchmark::kMicrosecond)
            ->Repetitions(repetitions);
    }
}

template <class Fit>
std::string RunName(int size)
{
    return Fit::Name() + "/" + std::to_string(size) + "/repeats:" + std::to_string(repetitions);
}

template <class Ours, class Peer>
void PrintRatios(const RatioTable& table)
{
    for (const int size : sizes)
    {
        table.PrintRatio(std::to_string(size) + " points, " + Peer::Name(), RunName<Ours>(size),
                         RunName<Peer>(size));
    }
}

template <class... Peers>
void Run()
{
    Register<OurFit>();
    (Register<Peers>(), ...);
    Register<OurFitOfShared<true>>();
    Register<OurFitOfShared<false>>();
    RatioTable table;
    benchmark::RunSpecifiedBenchmarks(&table);
    std::printf(
        "\nOne fit, median of %d interleaved runs over 64 laminates. \"Kept\" gives the peers our cache of "
        "decompositions\n",
        repetitions);
    (PrintRatios<OurFit, Peers>(table), ...);
    std::printf("\nBy a fitter that has met the frequencies, and one by one:\n");
    PrintRatios<OurFitOfShared<true>, OurFitOfShared<false>>(table);
}
} // namespace

int main(int argc, char** argv)
{
    if (!InitializeInterleaved(argc, argv, {"--benchmark_min_time=0.05"}))
    {
        return 1;
    }
    Run<PlainFitWith<EigenSvd, false>, PlainFitWith<LapackSvd, false>, PlainFitWith<EigenSvd, true>,
        PlainFitWith<LapackSvd, true>>();
    return 0;
}
