#pragma once

#include "tools/matlib/check/CFitCheck.h"
#include "tools/matlib/check/ParsedFile.h"

// What the library reads as it stands but is probably a mistake, in the order of the file. Of equal
// warnings about the rows of one table only the first.
[[nodiscard]] std::vector<Finding> FindWarnings(const ParsedFile& file, CFitCheck& fits);

// Parts of it.
class CWarnings;
void CheckRows(CWarnings& warnings, const ParsedTable& table);
void CheckFits(CWarnings& warnings, const ParsedMaterial& material, CFitCheck& fits);
