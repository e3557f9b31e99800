#pragma once

#include "reader/ReadWholeFile.h"

// Opens the file with a UTF-8 path for reading; null, with errno set, when it cannot.
[[nodiscard]] File OpenUtf8(const char* path);
