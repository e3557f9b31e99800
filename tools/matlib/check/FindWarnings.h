#pragma once

#include "tools/matlib/check/CFitCheck.h"
#include "tools/matlib/check/ParsedFile.h"

struct CheckedFile
{
    ParsedFile file;
    std::vector<Finding> warnings;
};

// Parses a file and looks for what the library reads as it stands but is probably a mistake, in the order of
// the file. Of equal warnings about the rows of one table only the first.
[[nodiscard]] CheckedFile FindWarnings(const std::string& paddedText, AfterError afterError, CFitCheck& fits);

// Parts of it.
class CWarnings;
void CheckRows(CWarnings& warnings, const ParsedTable& table);
void CheckFits(CWarnings& warnings, const ParsedTables& material, CFitCheck& fits);
