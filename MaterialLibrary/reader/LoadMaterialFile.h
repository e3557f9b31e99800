#pragma once

#include <optional>
#include <string>

class CFakeMaterialLib;

// Reads one material file and appends its materials to the library. Returns true when the whole file was
// read. Otherwise shows one message, with the path and, where the text is to blame, line and column, and
// empties the library of everything read so far from any file. Throws std::bad_alloc when memory is
// exhausted.
bool LoadMaterialFile(CFakeMaterialLib& library, const char* path);

// The same for a text in memory; `path` is what the message calls it. A NUL ends the text too.
bool LoadMaterialText(CFakeMaterialLib& library, std::string text, const char* path);

// Why a text gave no materials.
struct ReadFailure
{
    unsigned line;      // from 1
    unsigned column;    // how many characters of the line were read
    std::string reason; // what was expected there
};

// The text with the NUL and the padding behind it that the scanner wants.
[[nodiscard]] std::string PadText(std::string text);

// Reads a padded text and appends its materials to the library; nothing is shown to the user. After a failure
// the library also holds those materials that were read before it.
[[nodiscard]] std::optional<ReadFailure> ReadMaterials(CFakeMaterialLib& library, const char* paddedText);
