#pragma once

#include <cstdio>
#include <memory>

struct CloseFile
{
    void operator()(std::FILE* file) const noexcept { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, CloseFile>;

// The bytes of the file, which was opened for binary reading, with a NUL and the scanner's padding behind
// them. Throws CFileError when they cannot be read, and when `file` is null; errno then says why it was not
// opened.
[[nodiscard]] std::unique_ptr<char[]> ReadWholeFile(File file, const char* path);
