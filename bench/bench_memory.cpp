// Peak resident memory and processor time of loading a file, also of files made to hurt, at one size and at
// twice that.
#include "bench/MaterialTexts.h"
#include "model/CFakeMaterialLib.h"
#include "reader/LoadMaterialFile.h"
#include "shared/MessageManager/ISystemMessageBox.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <fstream>
#include <functional>
#include <string>

namespace
{
class Silent final : public msg::ISystemMessageBox
{
public:
    int Show(msg::WindowHandle, const char*, const char*, unsigned) override { return msg::answerOk; }
    [[nodiscard]] msg::WindowHandle FindMainWindow() override { return nullptr; }
    [[nodiscard]] std::string GetApplicationName() override { return {}; }
    [[nodiscard]] std::string GetExecutablePath() override { return {}; }
};

std::string program; // how this one is called

const std::string header = "{MAT_FILE}{VERSION=1.0}\n";

// A file of `count` pieces between an opening and a closing text.
struct Pieces
{
    const char* open;
    const char* piece;
    const char* close;

    std::string operator()(int count) const
    {
        std::string text = header;
        text.reserve(text.size() + std::strlen(piece) * static_cast<std::size_t>(count) + 100);
        text.append(open);
        for (int i = 0; i < count; ++i)
        {
            text.append(piece);
        }
        text.append(close);
        return text;
    }
};

struct Load
{
    double seconds;
    std::size_t peak; // bytes
};

// A number of kilobytes from /proc/self/status, in bytes.
std::size_t ReadStatus(const std::string& key)
{
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);)
    {
        if (line.starts_with(key))
        {
            return std::stoul(line.substr(key.size())) * 1024;
        }
    }
    std::fprintf(stderr, "/proc/self/status has no %s\n", key.c_str());
    std::abort();
}

// The program's other face: one load in a process that nobody has used yet.
int LoadAndPrint(const char* path)
{
    const std::size_t before = ReadStatus("VmRSS:");
    CFakeMaterialLib library;
    const auto start = std::chrono::steady_clock::now();
    LoadMaterialFile(library, path);
    const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    std::printf("%.9f %zu\n", seconds, ReadStatus("VmHWM:") - before);
    return 0;
}

Load LoadInNewProcess(const std::string& path)
{
    Load load{};
    std::FILE* const output = popen((program + " " + path).c_str(), "r");
    if (output == nullptr || std::fscanf(output, "%lf %zu", &load.seconds, &load.peak) != 2)
    {
        std::fprintf(stderr, "%s has not loaded %s\n", program.c_str(), path.c_str());
        std::abort();
    }
    pclose(output);
    return load;
}

std::string WriteFile(const std::string& text)
{
    std::string path = "/tmp/matlib_bench_" + std::to_string(text.size()) + ".mat";
    std::ofstream(path, std::ios::binary) << text;
    return path;
}

// The worst peak, the best time, and the median of the pairs' ratios: a pair shares the machine's good and
// bad moments.
void Report(const char* title, int count, const std::function<std::string(int)>& make)
{
    constexpr std::size_t pairs = 15;
    const std::string single = WriteFile(make(count));
    const std::string text = make(2 * count);
    const std::string twice = WriteFile(text);
    Load best = {1e9, 0};
    std::array<double, pairs> ratios = {};
    for (double& ratio : ratios)
    {
        const double seconds = LoadInNewProcess(single).seconds;
        const Load load = LoadInNewProcess(twice);
        ratio = load.seconds / seconds;
        best = {std::min(best.seconds, load.seconds), std::max(best.peak, load.peak)};
    }
    std::remove(single.c_str());
    std::remove(twice.c_str());
    std::sort(ratios.begin(), ratios.end());
    std::printf("%-36s %9.1f MB  %8.2f ms  peak/file %6.2f  twice the file: %5.2f times the time\n", title,
                static_cast<double>(text.size()) / 1e6, best.seconds * 1e3,
                static_cast<double>(best.peak) / static_cast<double>(text.size()), ratios[pairs / 2]);
}
} // namespace

int main(int argumentCount, char** arguments)
{
    Silent silent;
    msg::ReplaceSystemMessageBox(&silent);
    if (argumentCount == 2)
    {
        return LoadAndPrint(arguments[1]);
    }
    program = arguments[0];
    std::printf("Peak memory and time of a load from a file: of ordinary files at most 2.5 times the file\n");
    Report("materials of 40 points", 2000, [](int n) { return MakeMaterialTexts(n, 40).materialFile; });
    Report("materials of 5 points", 50'000, [](int n) { return MakeMaterialTexts(n, 5).materialFile; });
    std::printf("Files made to hurt: time and memory in proportion to their length\n");
    Report("one endless token", 10'000'000, Pieces{"{", "x", ""});
    Report("one endless quoted text", 10'000'000, Pieces{"{METAL(NAME=\"", "x", "\")}"});
    Report("a million empty blocks", 1'000'000, Pieces{"", "{DIELECTRIC}\n", ""});
    Report("a million rows in one table", 1'000'000,
           Pieces{"{DIELECTRIC(ER TABLE=", "1.234e9 4.3210\n", ")}"});
    Report("a million temperatures", 1'000'000,
           Pieces{"{DIELECTRIC", "(ER TEMPERATURE=25 VALUE=4.3)\n", "}"});
    Report("{METAL}", 1'000'000, Pieces{"", "{METAL}", ""});
    Report("a named material", 1'000'000, Pieces{"", "{METAL(NAME=\"a\")}", ""});
    Report("a row", 1'000'000, Pieces{"{DIELECTRIC(ER TABLE=", "1 1\n", ")}"});
    Report("a table", 1'000'000, Pieces{"{DIELECTRIC", "(ER)", "}"});
    return 0;
}
