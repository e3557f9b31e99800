#pragma once

#include <string>
#include <string_view>

// The text with the small letters of the system's code page; on systems without one, where texts are UTF-8,
// only A to Z change. No character changes its length.
[[nodiscard]] std::string ToLowerCase(std::string_view text);
