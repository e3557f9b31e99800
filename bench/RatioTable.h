#pragma once

#include <algorithm>
#include <benchmark/benchmark.h>
#include <cstdio>
#include <map>
#include <string>
#include <vector>

// Takes the user's arguments after `defaults`, with all benchmarks in turn: what else the machine does then
// meets them all alike. False: an argument is unknown.
[[nodiscard]] inline bool InitializeInterleaved(int argc, char** argv, std::vector<std::string> defaults)
{
    defaults.insert(defaults.begin(), "--benchmark_enable_random_interleaving=true");
    defaults.insert(defaults.end(), argv + 1, argv + argc);
    std::vector<char*> pointers = {argv[0]}; // the one that is used later
    for (std::string& argument : defaults)
    {
        pointers.push_back(argument.data());
    }
    int count = static_cast<int>(pointers.size());
    benchmark::Initialize(&count, pointers.data());
    return !benchmark::ReportUnrecognizedArguments(count, pointers.data());
}

// Shows the runs as they come, of repeated ones what they come to, and keeps their times, so that ratios
// between runs of one process can be printed at the end.
class RatioTable : public benchmark::ConsoleReporter
{
public:
    RatioTable() : ConsoleReporter(OO_Tabular) {}

    void ReportRuns(const std::vector<Run>& runs) override
    {
        if (runs.empty() || runs.front().run_type == Run::RT_Aggregate || runs.front().repetitions == 1)
        {
            ConsoleReporter::ReportRuns(runs);
        }
        for (const Run& run : runs)
        {
            if (run.run_type == Run::RT_Iteration)
            {
                auto& times = seconds[run.run_name.str()];
                times.push_back(TimeOf(run) / benchmark::GetTimeUnitMultiplier(run.time_unit));
                std::sort(times.begin(), times.end());
            }
        }
    }

    // Seconds of one iteration of the run, the median of its repetitions; 0 when it did not run.
    [[nodiscard]] double GetSeconds(const std::string& run) const { return GetQuantile(run, 2); }

    // "title: ours 1.2 us, peer 3.6 us, peer / ours = 3.0", when both ran. With repetitions also the spread
    // of each: half of its times lie within that many per cent of its median.
    void PrintRatio(const std::string& title, const std::string& ours, const std::string& peer) const
    {
        if (GetSeconds(ours) > 0.0 && GetSeconds(peer) > 0.0)
        {
            std::printf("%-52s ours %10.3f us%s   peer %10.3f us%s   peer/ours %6.2f\n", title.c_str(),
                        GetSeconds(ours) * 1e6, DescribeSpread(ours).c_str(), GetSeconds(peer) * 1e6,
                        DescribeSpread(peer).c_str(), GetSeconds(peer) / GetSeconds(ours));
        }
    }

private:
    // Processor time, which does not depend on what else the machine does; real time where a run asks for it,
    // or measures it itself.
    [[nodiscard]] static double TimeOf(const Run& run)
    {
        return run.run_name.time_type.empty() ? run.GetAdjustedCPUTime() : run.GetAdjustedRealTime();
    }

    // The quarter-th quartile of the run's times.
    [[nodiscard]] double GetQuantile(const std::string& run, std::size_t quarter) const
    {
        const auto found = seconds.find(run);
        return found != seconds.end() ? found->second[(found->second.size() - 1) * quarter / 4] : 0.0;
    }

    [[nodiscard]] std::string DescribeSpread(const std::string& run) const
    {
        char text[32] = "";
        if (seconds.at(run).size() > 1)
        {
            const double width = (GetQuantile(run, 3) - GetQuantile(run, 1)) / 2;
            std::snprintf(text, sizeof text, " +-%.0f%%", 100 * width / GetSeconds(run));
        }
        return text;
    }

    std::map<std::string, std::vector<double>> seconds; // of each run's repetitions, ascending
};
