#pragma once

#include "reader/CTokenScanner.h"

#include <string>
#include <string_view>

// Something that the author of a material file should know.
struct Finding
{
    bool isError = false;  // the library refuses the file; otherwise it reads it as it stands
    Place place;           // an error's is where reading stopped, a warning's where its subject begins
    std::string_view rule; // a word to tell findings apart: "format" for every error
    std::string text;      // a sentence or two
};
