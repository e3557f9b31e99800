// Converting the numbers of a material file, in the order of the file: ours beside fast_float and the
// standard library, all within the text. One iteration is a thousand numbers, so microseconds are nanoseconds
// a number.
#include "bench/MaterialTexts.h"
#include "bench/RatioTable.h"
#include "shared/Misc_String/Decimal.h"
#include "shared/Misc_String/EngineeringNumber.h"

#include <array>
#include <charconv>
#include <fast_float/fast_float.h>
#include <functional>
#include <random>
#include <span>
#include <string_view>

namespace
{
constexpr std::size_t count = 1000;

// Texts with what ParseUnsignedDecimal wants behind them, and where their numbers begin.
class CNumbers
{
public:
    explicit CNumbers(std::string numbers) : text(std::move(numbers))
    {
        text.append(8, '\0');
        for (std::size_t at = 0; begins.size() < count; at = text.find_first_of(" \n", at))
        {
            at = text.find_first_not_of(" \n", at);
            begins.push_back(at);
        }
    }

    [[nodiscard]] std::string_view From(std::size_t index) const
    {
        return std::string_view(text).substr(begins[index]);
    }

private:
    std::string text;
    std::vector<std::size_t> begins;
};

// The rows of the first tables: frequencies and values in turn.
std::string MakeRows()
{
    const std::string file = MakeMaterialTexts(20, 40).materialFile;
    std::string rows;
    for (std::size_t table = 0; (table = file.find("TABLE =", table)) != std::string::npos; ++table)
    {
        const std::size_t begin = table + std::string_view("TABLE =").size();
        rows += file.substr(begin, file.find(')', begin) - begin);
    }
    return rows;
}

std::string MakeLongNumbers()
{
    std::mt19937_64 random(1);
    std::uniform_real_distribution<double> permittivity(2.5, 5.0);
    std::string numbers;
    for (std::size_t i = 0; i < count; ++i)
    {
        char text[32];
        std::snprintf(text, sizeof text, "%.17g ", permittivity(random));
        numbers += text;
    }
    return numbers;
}

std::string MakeFrequencies()
{
    constexpr std::array<const char*, 8> texts = {"1MHz ", "10MHz ",  "100MHz ", "500MHz ",
                                                  "1GHz ", "2.5GHz ", "5GHz ",   "10GHz "};
    std::string numbers;
    for (std::size_t i = 0; i < count; ++i)
    {
        numbers += texts[i % texts.size()];
    }
    return numbers;
}

double ConvertByUs(std::string_view text)
{
    return ParseUnsignedDecimal(text.data()).value;
}

double ConvertByUsWithinBounds(std::string_view text)
{
    return ParseDecimal(text).value;
}

double ConvertByUsWithUnit(std::string_view text)
{
    double value = 0.0;
    static_cast<void>(ParseEngineeringNumber(text.substr(0, text.find(' ')), &value));
    return value;
}

double ConvertByFastFloat(std::string_view text)
{
    double value = 0.0;
    fast_float::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

double ConvertByStandard(std::string_view text)
{
    double value = 0.0;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

template <double (*convert)(std::string_view)>
void ConvertAll(benchmark::State& state, const CNumbers& numbers)
{
    for (auto _ : state)
    {
        double sum = 0.0;
        for (std::size_t i = 0; i < count; ++i)
        {
            sum += convert(numbers.From(i));
        }
        benchmark::DoNotOptimize(sum);
    }
}

struct Contender
{
    const char* name;
    void (*convertAll)(benchmark::State&, const CNumbers&);
};
constexpr Contender peers[] = {{"fast_float", ConvertAll<ConvertByFastFloat>},
                               {"std::from_chars", ConvertAll<ConvertByStandard>}};

struct Workload
{
    const char* name;
    CNumbers numbers;
    std::vector<Contender> ours;
};

std::string NameOf(const Workload& workload, const Contender& contender)
{
    return std::string(workload.name) + ", " + contender.name;
}

} // namespace

int main(int argc, char** argv)
{
    if (!InitializeInterleaved(argc, argv, {"--benchmark_repetitions=11", "--benchmark_min_time=0.02"}))
    {
        return 1;
    }
    const Contender row = {"in a row", ConvertAll<ConvertByUs>};
    const Contender bounded = {"within bounds", ConvertAll<ConvertByUsWithinBounds>};
    const Contender withUnit = {"with its unit", ConvertAll<ConvertByUsWithUnit>};
    const Workload workloads[] = {
        {"rows", CNumbers(MakeRows()), {row, bounded}},
        {"17 digits", CNumbers(MakeLongNumbers()), {row, bounded}},
        {"frequencies", CNumbers(MakeFrequencies()), {row, withUnit}},
    };
    for (const Workload& workload : workloads)
    {
        for (const std::span<const Contender> contenders :
             {std::span<const Contender>(workload.ours), std::span<const Contender>(peers)})
        {
            for (const Contender& contender : contenders)
            {
                benchmark::RegisterBenchmark(NameOf(workload, contender).c_str(), contender.convertAll,
                                             std::cref(workload.numbers));
            }
        }
    }
    RatioTable table;
    benchmark::RunSpecifiedBenchmarks(&table);
    std::printf("\nA thousand numbers (peer/ours above 1: ours is faster)\n");
    for (const Workload& workload : workloads)
    {
        for (const Contender& own : workload.ours)
        {
            for (const Contender& peer : peers)
            {
                table.PrintRatio(NameOf(workload, own) + "; " + peer.name, NameOf(workload, own),
                                 NameOf(workload, peer));
            }
        }
    }
    return 0;
}
