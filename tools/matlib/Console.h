#pragma once

#include "tools/matlib/CFailure.h"
#include "tools/matlib/CProgress.h"
#include "tools/matlib/Options.h"
#include "tools/matlib/Origin.h"

#include <string_view>

// Writes to the standard output stream, as it is. Throws CFailure when that fails (a full disk).
void PrintOutput(std::string_view text);

// Tells on the terminal how far `steps` steps have come; silent where nobody watches.
[[nodiscard]] CProgress ShowProgress(int steps);

// Writes to the standard error stream, as it is.
void PrintError(std::string_view text);

// Writes one line "matlib: TEXT" to the standard error stream; line breaks in the text become blanks.
void PrintProblem(std::string_view text);

// Says of the values that were printed what a user should know, in one line, where there is something.
void PrintOrigins(const COriginCounter& origins);

// Runs an action for one of several materials. When all are asked for, one that has no value is left out:
// its CFailure is printed, and the answer is false. When it was named the CFailure passes.
template <class Action>
[[nodiscard]] bool TakeOrReport(const Options& options, Action action)
{
    try
    {
        action();
        return true;
    }
    catch (const CFailure& failure)
    {
        if (!options.allMaterials)
        {
            throw;
        }
        PrintProblem(failure.what());
        return false;
    }
}
