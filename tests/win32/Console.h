#pragma once

#include <windows.h>

#include <string_view>

// Writes a line to the standard output of the process at once: the lines of a host program and of the
// modules it loads come out in their order.
inline void PrintLine(std::string_view line)
{
    const HANDLE output = GetStdHandle(STD_OUTPUT_HANDLE);
    DWORD written = 0;
    WriteFile(output, line.data(), static_cast<DWORD>(line.size()), &written, nullptr);
    WriteFile(output, "\n", 1, &written, nullptr);
}
