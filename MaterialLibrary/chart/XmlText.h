#pragma once

#include <string>
#include <string_view>

// The text as XML character data in UTF-8. What is not UTF-8 is taken for Windows-1252 or Latin-1 as a whole;
// characters that XML does not allow become question marks.
[[nodiscard]] std::string ToXmlText(std::string_view text);
