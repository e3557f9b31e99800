#pragma once

#include "resources/TextIds.h"

#include <string>

// The text with that identifier, empty when there is none. The reader's messages 12192 to 12203 come from
// the host program's string table where it has them, all others from this module's.
[[nodiscard]] std::string LoadText(unsigned identifier);

// Where the texts are kept on this platform. False when there is no such text.
[[nodiscard]] bool FindModuleText(unsigned identifier, std::string& text);
[[nodiscard]] bool FindHostText(unsigned identifier, std::string& text);
