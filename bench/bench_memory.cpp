// Peak memory and time of loading a file, also of files made to hurt, at one size and at twice that.
#include "bench/MaterialTexts.h"
#include "shared/MessageManager/ISystemMessageBox.h"

#include "MaterialLibrary/model/CFakeMaterialLib.h"
#include "MaterialLibrary/reader/LoadMaterialFile.h"

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <functional>
#include <malloc.h>
#include <new>

namespace
{
std::size_t liveBytes = 0;
std::size_t peakBytes = 0;
} // namespace

void* operator new(std::size_t bytes)
{
    void* const block = std::malloc(bytes);
    if (block == nullptr)
    {
        throw std::bad_alloc();
    }
    liveBytes += malloc_usable_size(block);
    peakBytes = std::max(peakBytes, liveBytes);
    return block;
}

void* operator new(std::size_t bytes, std::align_val_t alignment) // the arena's way in
{
    if (static_cast<std::size_t>(alignment) > alignof(std::max_align_t))
    {
        throw std::bad_alloc();
    }
    return operator new(bytes);
}

void operator delete(void* block) noexcept
{
    liveBytes -= block != nullptr ? malloc_usable_size(block) : 0;
    std::free(block);
}

void operator delete(void* block, std::size_t) noexcept
{
    operator delete(block);
}

void operator delete(void* block, std::align_val_t) noexcept
{
    operator delete(block);
}

void operator delete(void* block, std::size_t, std::align_val_t) noexcept
{
    operator delete(block);
}

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

const std::string header = "{MAT_FILE}{VERSION=1.0}\n";

std::string Repeat(const std::string& piece, int count)
{
    std::string text;
    text.reserve(piece.size() * static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i)
    {
        text += piece;
    }
    return text;
}

struct Load
{
    double seconds;
    std::size_t peak;
};

// The best of several runs; the peak includes the file's text.
Load Measure(const std::string& path)
{
    Load best = {1e9, 0};
    for (int run = 0; run < 5; ++run)
    {
        const std::size_t before = liveBytes;
        peakBytes = liveBytes;
        CFakeMaterialLib library;
        const auto start = std::chrono::steady_clock::now();
        LoadMaterialFile(library, path.c_str());
        const double seconds =
            std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
        best.seconds = std::min(best.seconds, seconds);
        best.peak = peakBytes - before;
    }
    return best;
}

void Report(const char* title, int count, const std::function<std::string(int)>& make)
{
    Load loads[2];
    std::size_t fileBytes = 0;
    const std::string path = "/tmp/matlib_bench_" + std::to_string(count) + ".mat";
    for (int i = 0; i < 2; ++i)
    {
        const std::string text = make(count << i);
        std::FILE* const file = std::fopen(path.c_str(), "wb");
        std::fwrite(text.data(), 1, text.size(), file);
        std::fclose(file);
        fileBytes = text.size();
        loads[i] = Measure(path);
    }
    std::remove(path.c_str());
    std::printf("%-36s %9.1f MB  %8.2f ms  peak/file %6.2f  twice the file: %5.2f times the time\n", title,
                static_cast<double>(fileBytes) / 1e6, loads[1].seconds * 1e3,
                static_cast<double>(loads[1].peak) / static_cast<double>(fileBytes),
                loads[1].seconds / loads[0].seconds);
}
} // namespace

int main()
{
    Silent silent;
    msg::ReplaceSystemMessageBox(&silent);
    std::printf("Peak memory and time of a load from a file\n");
    Report("materials of 40 points", 2000, [](int n) { return MakeMaterialTexts(n, 40).materialFile; });
    Report("materials of 5 points", 50'000, [](int n) { return MakeMaterialTexts(n, 5).materialFile; });
    Report("one endless token", 10'000'000,
           [](int n) { return header + "{" + std::string(static_cast<std::size_t>(n), 'x'); });
    Report("one endless quoted text", 10'000'000,
           [](int n)
           { return header + "{METAL(NAME=\"" + std::string(static_cast<std::size_t>(n), 'x') + "\")}"; });
    Report("a million empty blocks", 1'000'000, [](int n) { return header + Repeat("{DIELECTRIC}\n", n); });
    Report("a million rows in one table", 1'000'000,
           [](int n) { return header + "{DIELECTRIC(ER TABLE=" + Repeat("1.234e9 4.3210\n", n) + ")}"; });
    Report("a million temperatures", 1'000'000,
           [](int n) { return header + "{DIELECTRIC" + Repeat("(ER TEMPERATURE=25 VALUE=4.3)\n", n) + "}"; });
    return 0;
}
