#pragma once

#include "tools/matlib/Options.h"

namespace CLI
{
class App;
}

// Adds the tables and the options of "import".
void AddImportOptions(CLI::App& command, Options& options);
