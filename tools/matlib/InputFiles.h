#pragma once

#include "tools/matlib/check/CheckText.h"

// The material files that a command line names.

// Folders stand for the material files in them; "-" is standard input. Throws CFailure for a folder without
// any.
[[nodiscard]] std::vector<std::string> FindFiles(const std::vector<std::string>& paths);

// What findings call it: "<stdin>" for standard input.
[[nodiscard]] std::string NameInput(const std::string& path);

// The file's text, or why there is none.
[[nodiscard]] FileText ReadInput(const std::string& path);
