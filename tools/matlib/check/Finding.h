#pragma once

#include "reader/CTokenScanner.h"
#include "tools/matlib/check/SourceText.h"

#include <optional>
#include <string>
#include <string_view>

// What the library itself says of an error: its message, and the place up to which it read.
struct LibraryMessage
{
    Place place;
    std::string_view reason;
};

struct Note
{
    Span where;
    std::string text;
};

// Something that the author of a material file should know.
struct Finding
{
    bool isError = false;  // the library refuses the file; otherwise it reads it as it stands
    Span where;            // the word in question
    std::string_view rule; // one of Rules.h; empty for one that is not about a material file
    std::string text;      // a sentence or two
    std::optional<Note> note = {};
    std::optional<LibraryMessage> library = {}; // of an error
};
