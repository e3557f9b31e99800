#pragma once

#include "tools/matlib/Options.h"

#include <string>
#include <variant>

// Why the program ends without running a command: help was asked for, or the command line makes no sense.
struct CommandLineEnd
{
    int exitCode;
    std::string output; // for the standard output stream
    std::string errors; // for the standard error stream
};

// Reads the arguments of main.
[[nodiscard]] std::variant<Options, CommandLineEnd> ParseCommandLine(int argc, const char* const* argv);
