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

void PrintError(std::string_view text)
{
    static_cast<void>(
        std::fwrite(text.data(), 1, text.size(), stderr)); // nowhere is left to report a failure
    static_cast<void>(std::fflush(stderr));
}

CProgress ShowProgress(int steps)
{
    return {steps, IsWatched() ? CProgress::Print(PrintError) : CProgress::Print()};
}

void PrintProblem(std::string_view text)
{
    PrintError("matlib: " + JoinLines(text) + "\n");
}

void PrintOrigins(const COriginCounter& origins)
{
    if (const std::string text = origins.Describe(); !text.empty())
    {
        PrintProblem(text);
    }
}
