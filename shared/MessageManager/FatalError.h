#pragma once

// Reports a broken invariant of the library, found at `line` of `file`, and ends the process with exit
// code 1.
[[noreturn]] void FatalError(const char* file, unsigned line);
