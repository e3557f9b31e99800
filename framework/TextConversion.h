#pragma once

#include <string>
#include <string_view>

// Windows and dialogs speak UTF-16, the library the system's multibyte code page. A character that the other
// side does not have becomes the system's replacement for it.
[[nodiscard]] std::wstring ToWide(std::string_view text);
[[nodiscard]] std::string ToMultibyte(std::wstring_view text);
