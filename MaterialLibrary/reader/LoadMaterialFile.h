#pragma once

class CFakeMaterialLib;

// Reads one material file and appends its materials to the library. Returns true when the whole file was
// read. Otherwise shows one message, with the path and, where the text is to blame, line and column, and
// empties the library of everything read so far from any file. Throws std::bad_alloc when memory is
// exhausted.
bool LoadMaterialFile(CFakeMaterialLib& library, const char* path);

// The same for a text in memory that ends with NUL; `path` is what the message calls it.
bool LoadMaterialText(CFakeMaterialLib& library, const char* text, const char* path);
