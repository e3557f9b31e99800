#pragma once

#include "writer/WriteError.h"

#include <string_view>

// What becomes of a file that is there.
enum class ExistingFile
{
    keep,   // it stays as it is: CWriteError::Kind::exists
    replace // the new one takes its place, with its permissions
};

// Writes the file at the path, which is UTF-8 on Windows and any bytes elsewhere, as a whole or not at all:
// the bytes go to a new file beside it, reach the disk, and then take the name. A reader sees the old file or
// the new one, never half of one. A link is followed: what it leads to is replaced. Only an ordinary file is
// ever replaced, and only one that may be written; its other names (hard links) keep the old content. A new
// file has the permissions that the system gives one. Throws CWriteError, and then nothing has changed and
// nothing is left behind.
void WriteWholeFile(const char* path, std::string_view bytes, ExistingFile existing);
