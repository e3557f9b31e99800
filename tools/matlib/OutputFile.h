#pragma once

#include "writer/WriteWholeFile.h"

#include <string>

// Writes the file as a whole or not at all (writer/WriteWholeFile.h); the path is in the encoding of the
// command line. Throws CFailure for the user: that the file exists and --force would replace it, or why it
// cannot be written.
void WriteOutputFile(const std::string& path, std::string_view text, ExistingFile existing);
