#pragma once

#include "tools/matlib/check/CFitCheck.h"
#include "tools/matlib/check/ParsedFile.h"

struct CheckedFile
{
    ParsedFile file;
    std::vector<Finding> warnings;
};

// Parses a file and looks for what the library reads as it stands but is probably a mistake, in the order of
// the file. Of equal warnings about the rows of one table only the first. Of `fits` there is one at least:
// see CMaterialChecks.
[[nodiscard]] CheckedFile FindWarnings(const std::string& paddedText, AfterError afterError,
                                       std::span<CFitCheck> fits);
