#pragma once

#include <string>
#include <vector>

class IMatLib;

// The type names of the library's materials of that kind, each once, in the order of their first appearance
// from the last material to the first.
[[nodiscard]] std::vector<std::string> ListTypeNames(const IMatLib& library, int materialKind);
