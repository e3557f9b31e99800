#pragma once

#include "resources/TextIds.h"

#include <optional>
#include <string>
#include <string_view>

// The library's own text. It is compiled in: the library's string table is in the library, if that is a DLL.
[[nodiscard]] std::string_view GetLibraryText(MLTEXTID identifier);

// Why the library refused a file.
struct FileProblem
{
    std::optional<unsigned> line; // where it stopped reading, if the text is to blame
    std::optional<unsigned> column;
    std::string reason;
};

// What a message of the library says about the file that it was given as `path`; nothing when the message
// is not about that file. A message about the file that gives no position is the reason as a whole.
[[nodiscard]] std::optional<FileProblem> FindFileProblem(std::string_view message, std::string_view path);
