// Scanning numbers: the system's scanner beside std::from_chars and fast_float, on the same tokens. Ends
// with a table of nanoseconds per number, the best pass of all.

#include "shared/Misc_String/Decimal.h"
#include "shared/Misc_String/EngineeringNumber.h"

#include <algorithm>
#include <array>
#include <benchmark/benchmark.h>
#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <fast_float/fast_float.h>
#include <functional>
#include <map>
#include <random>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace
{
// Blank-separated tokens.
class CTokens
{
public:
    explicit CTokens(const std::function<std::string(std::mt19937&)>& makeToken)
    {
        std::mt19937 random(1);
        std::vector<std::size_t> ends;
        for (std::size_t i = 0; i < 20000; ++i)
        {
            text += makeToken(random);
            ends.push_back(text.size());
            text += ' ';
        }
        std::size_t begin = 0;
        for (const std::size_t end : ends)
        {
            tokens.emplace_back(text.data() + begin, end - begin);
            begin = end + 1;
        }
    }

    CTokens(const CTokens&) = delete;
    CTokens& operator=(const CTokens&) = delete;

    const std::vector<std::string_view>& All() const { return tokens; }
    const char* End() const { return text.data() + text.size(); }

private:
    std::string text;
    std::vector<std::string_view> tokens;
};

std::string Print(const char* format, double value)
{
    std::array<char, 64> text;
    std::snprintf(text.data(), text.size(), format, value);
    return text.data();
}

double Uniform(std::mt19937& random, double low, double high)
{
    return std::uniform_real_distribution<double>(low, high)(random);
}

// What the rows of dielectric tables hold: frequencies, permittivities and loss tangents.
std::string MakeTableValue(std::mt19937& random)
{
    const double frequency = std::pow(10.0, Uniform(random, 6.0, 10.0));
    switch (random() % 4)
    {
    case 0:
        return Print("%.0f", std::round(frequency / 1e5) * 1e5);
    case 1:
        return Print("%.3g", frequency);
    case 2:
        return Print("%.4g", Uniform(random, 2.5, 5.0));
    default:
        return Print("%.4g", Uniform(random, 0.001, 0.03));
    }
}

std::string MakeMixedValue(std::mt19937& random)
{
    constexpr std::array texts = {"4.3", "0.0215", "1e9", "1.25e+10", "2500000000", "3.141592653589793"};
    return texts[random() % texts.size()];
}

std::string MakeLongValue(std::mt19937& random)
{
    return Print("%.17g", Uniform(random, 2.5, 5.0));
}

std::string MakeEngineeringValue(std::mt19937& random)
{
    constexpr std::array texts = {"1GHz", "2.5GHz", "100MHz", "1e9", "10k", "12.5G", "350kHz", "1000000"};
    return texts[random() % texts.size()];
}

double ScanByUs(const char* first, const char* last)
{
    return ParseDecimal(first, last).value;
}

double ScanByUsWithSuffix(const char* first, const char* last)
{
    double value = 0.0;
    (void)ParseEngineeringNumber(std::string_view(first, static_cast<std::size_t>(last - first)), &value);
    return value;
}

double ScanByStandard(const char* first, const char* last)
{
    double value = 0.0;
    std::from_chars(first, last, value);
    return value;
}

double ScanByFastFloat(const char* first, const char* last)
{
    double value = 0.0;
    fast_float::from_chars(first, last, value);
    return value;
}

// Each pass is timed by itself: the best pass is the one that nothing else on the machine disturbed.
template <double (*Scan)(const char*, const char*)>
void ScanAll(benchmark::State& state, const CTokens& tokens, bool withinText)
{
    double best = HUGE_VAL;
    for (auto _ : state)
    {
        const auto start = std::chrono::steady_clock::now();
        double sum = 0.0;
        for (const std::string_view token : tokens.All())
        {
            sum += Scan(token.data(), withinText ? tokens.End() : token.data() + token.size());
        }
        benchmark::DoNotOptimize(sum);
        const std::chrono::duration<double, std::nano> time = std::chrono::steady_clock::now() - start;
        best = std::min(best, time.count() / static_cast<double>(tokens.All().size()));
    }
    state.counters["best_ns_per_number"] = best;
}

// Keeps the best pass of each benchmark; shows the medians.
class CBestTimes : public benchmark::ConsoleReporter
{
public:
    CBestTimes() : ConsoleReporter(OO_Tabular) {}

    void ReportRuns(const std::vector<Run>& runs) override
    {
        std::vector<Run> medians;
        for (const Run& run : runs)
        {
            if (run.aggregate_name == "median")
            {
                medians.push_back(run);
            }
            if (run.run_type != Run::RT_Iteration)
            {
                continue;
            }
            double& best = times.try_emplace(run.run_name.function_name, HUGE_VAL).first->second;
            best = std::min(best, run.counters.at("best_ns_per_number").value);
        }
        ConsoleReporter::ReportRuns(medians);
    }

    double Best(const std::string& name) const
    {
        const auto found = times.find(name);
        return found != times.end() ? found->second : NAN;
    }

private:
    std::map<std::string, double> times;
};

struct Workload
{
    const char* name;
    CTokens tokens;
    bool withinText;
    bool hasSuffixes = false;
};

constexpr std::array scanners = {"system", "from_chars", "fast_float"};

std::string NameOf(const Workload& workload, std::size_t scanner)
{
    return std::string(workload.name) + "/" + scanners[scanner];
}

void Register(const Workload& workload)
{
    const std::array functions = {workload.hasSuffixes ? ScanAll<ScanByUsWithSuffix> : ScanAll<ScanByUs>,
                                  ScanAll<ScanByStandard>, ScanAll<ScanByFastFloat>};
    for (std::size_t i = 0; i < scanners.size(); ++i)
    {
        benchmark::RegisterBenchmark(NameOf(workload, i).c_str(), functions[i], std::cref(workload.tokens),
                                     workload.withinText);
    }
}

void PrintTable(std::span<const Workload> workloads, const CBestTimes& times)
{
    std::printf("\n%-38s %9s %11s %11s   %s\n", "ns per number, best pass", scanners[0], scanners[1],
                scanners[2], "system's time against from_chars, fast_float");
    for (const Workload& workload : workloads)
    {
        std::array<double, scanners.size()> each{};
        for (std::size_t i = 0; i < each.size(); ++i)
        {
            each[i] = times.Best(NameOf(workload, i));
        }
        std::printf("%-38s %9.1f %11.1f %11.1f   %.2f, %.2f\n", workload.name, each[0], each[1], each[2],
                    each[0] / each[1], each[0] / each[2]);
    }
}
} // namespace

int main(int argc, char** argv)
{
    // Short runs of all benchmarks in turn: what else the machine does then meets them all alike.
    std::vector<std::string> arguments = {argv[0], "--benchmark_repetitions=40", "--benchmark_min_time=0.01",
                                          "--benchmark_enable_random_interleaving=true"};
    arguments.insert(arguments.end(), argv + 1, argv + argc);
    std::vector<char*> pointers;
    for (std::string& argument : arguments)
    {
        pointers.push_back(argument.data());
    }
    int count = static_cast<int>(pointers.size());
    benchmark::Initialize(&count, pointers.data());
    if (benchmark::ReportUnrecognizedArguments(count, pointers.data()))
    {
        return 1;
    }

    const std::array<Workload, 7> workloads = {{
        {"table values within the text", CTokens(MakeTableValue), true},
        {"table values cut out", CTokens(MakeTableValue), false},
        {"3 to 17 digits within the text", CTokens(MakeMixedValue), true},
        {"3 to 17 digits cut out", CTokens(MakeMixedValue), false},
        {"17 digits within the text", CTokens(MakeLongValue), true},
        {"17 digits cut out", CTokens(MakeLongValue), false},
        {"with suffixes, which the others leave", CTokens(MakeEngineeringValue), false, true},
    }};
    for (const Workload& workload : workloads)
    {
        Register(workload);
    }
    CBestTimes times;
    benchmark::RunSpecifiedBenchmarks(&times);
    PrintTable(workloads, times);
    return 0;
}
