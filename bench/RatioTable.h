#pragma once

#include <benchmark/benchmark.h>
#include <cstdio>
#include <map>
#include <string>
#include <vector>

// Takes the user's arguments after `defaults`, with all benchmarks in turn: what else the machine does then
// meets them all alike. False: an argument is unknown.
[[nodiscard]] inline bool InitializeInterleaved(int argc, char** argv, std::vector<std::string> defaults)
{
    defaults.insert(defaults.begin(), {argv[0], "--benchmark_enable_random_interleaving=true"});
    defaults.insert(defaults.end(), argv + 1, argv + argc);
    std::vector<char*> pointers;
    for (std::string& argument : defaults)
    {
        pointers.push_back(argument.data());
    }
    int count = static_cast<int>(pointers.size());
    benchmark::Initialize(&count, pointers.data());
    return !benchmark::ReportUnrecognizedArguments(count, pointers.data());
}

// Shows the runs as they come and keeps their times, so that ratios between runs of one process can be
// printed at the end.
class RatioTable : public benchmark::ConsoleReporter
{
public:
    RatioTable() : ConsoleReporter(OO_Tabular) {}

    void ReportRuns(const std::vector<Run>& runs) override
    {
        ConsoleReporter::ReportRuns(runs);
        for (const Run& run : runs)
        {
            if (run.run_type == Run::RT_Iteration || run.aggregate_name == "median")
            {
                seconds[run.run_name.str()] = TimeOf(run) / benchmark::GetTimeUnitMultiplier(run.time_unit);
            }
        }
    }

    // Seconds of one iteration of the run, 0 when it did not run. With repetitions it is their median.
    [[nodiscard]] double GetSeconds(const std::string& run) const
    {
        const auto found = seconds.find(run);
        return found != seconds.end() ? found->second : 0.0;
    }

    // "title: ours 1.2 us, peer 3.6 us, peer / ours = 3.0", when both ran.
    void PrintRatio(const std::string& title, const std::string& ours, const std::string& peer) const
    {
        const double own = GetSeconds(ours);
        const double other = GetSeconds(peer);
        if (own > 0.0 && other > 0.0)
        {
            std::printf("%-52s ours %10.3f us   peer %10.3f us   peer/ours %6.2f\n", title.c_str(), own * 1e6,
                        other * 1e6, other / own);
        }
    }

private:
    // Processor time, which does not depend on what else the machine does; manual times are measured so.
    [[nodiscard]] static double TimeOf(const Run& run)
    {
        const bool manual = run.run_name.time_type.find("manual") != std::string::npos;
        return manual ? run.GetAdjustedRealTime() : run.GetAdjustedCPUTime();
    }

    std::map<std::string, double> seconds;
};
