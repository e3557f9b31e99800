#pragma once

#include "tools/matlib/CProgress.h"

#include <string_view>

// Writes to the standard output stream, as it is. Throws CFailure when that fails (a full disk).
void PrintOutput(std::string_view text);

// Tells on the terminal how far `steps` steps have come; silent where nobody watches.
[[nodiscard]] CProgress ShowProgress(int steps);

// Writes one line "matlib: TEXT" to the standard error stream; line breaks in the text become blanks.
void PrintProblem(std::string_view text);
