#pragma once

#include <string>
#include <string_view>

// The first character of a text that begins with a byte beyond ASCII: a whole one in UTF-8, else that byte.
[[nodiscard]] std::string_view FindCharacter(std::string_view text);

// What becomes of that character in a host, whose system takes each byte for a character of its code page.
[[nodiscard]] std::string DescribeInCodePage(std::string_view character);
