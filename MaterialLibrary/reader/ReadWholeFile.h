#pragma once

#include "reader/CTextPages.h"

#include <memory>

// The bytes of the file with a NUL behind them. Throws CFileError with the whole message, the path and the
// system's reason in it, when the file cannot be opened or read.
[[nodiscard]] std::unique_ptr<CTextPages> ReadWholeFile(const char* path);
