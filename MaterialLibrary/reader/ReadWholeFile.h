#pragma once

#include <memory>

// The bytes of the file with a NUL behind them. Throws CFileError with the whole message, the path and the
// system's reason in it, when the file cannot be opened or read.
[[nodiscard]] std::unique_ptr<char[]> ReadWholeFile(const char* path);
