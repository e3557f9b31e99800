#pragma once

#include <string_view>

// Writes to the standard output stream, as it is. Throws CFailure when that fails (a full disk).
void PrintOutput(std::string_view text);

// Writes to the terminal behind the standard error stream, as it is.
void PrintStatus(std::string_view text);

// Writes one line "matlib: TEXT" to the standard error stream; line breaks in the text become blanks.
void PrintProblem(std::string_view text);
