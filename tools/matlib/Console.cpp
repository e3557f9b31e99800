#include "tools/matlib/Console.h"

#include "tools/matlib/Platform.h"
#include "tools/matlib/Wording.h"

#include <cstdio>

void PrintOutput(std::string_view text)
{
    if (std::fwrite(text.data(), 1, text.size(), stdout) != text.size() || std::fflush(stdout) != 0)
    {
        throw CFailure("the output could not be written");
    }
}

CProgress ShowProgress(int steps)
{
    const auto print = [](std::string_view text)
    {
        static_cast<void>(std::fwrite(text.data(), 1, text.size(), stderr));
        static_cast<void>(std::fflush(stderr));
    };
    return {steps, IsWatched() ? CProgress::Print(print) : CProgress::Print()};
}

void PrintProblem(std::string_view text)
{
    const std::string line = "matlib: " + JoinLines(text) + "\n";
    static_cast<void>(std::fputs(line.c_str(), stderr)); // nowhere is left to report a failure
}

void PrintOrigins(const COriginCounter& origins)
{
    if (const std::string text = origins.Describe(); !text.empty())
    {
        PrintProblem(text);
    }
}
