#pragma once

#include "tools/matlib/Options.h"

namespace CLI
{
class App;
}

// Adds the arguments and options of "format".
void AddFormatOptions(CLI::App& format, Options& options);
