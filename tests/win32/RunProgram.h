#pragma once

#include <string>
#include <vector>

struct ProgramRun
{
    unsigned exitCode;
    std::vector<std::string> lines; // of the standard output
};

// Runs a program to its end, in the given current folder. Throws std::runtime_error when it cannot be
// started or does not end within a minute.
[[nodiscard]] ProgramRun RunProgram(const std::string& program, const std::vector<std::string>& arguments,
                                    const std::string& currentFolder);
