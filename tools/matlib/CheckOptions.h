#pragma once

#include "tools/matlib/Options.h"

namespace CLI
{
class App;
}

// Adds the options of "check" beside its files.
void AddCheckOptions(CLI::App& check, Options& options);
