#pragma once

#include <string>
#include <string_view>

// The text of a material file in the one layout: a record on a line, keys padded to one width, a row on a
// line, a blank line before each material. Comments stay where they stand, on lines of their own or behind
// what they stand behind; blank lines too, of several one. The spelling of numbers and words, the order of
// everything, and line ends (those of the text's first line) are kept, and whatever follows a NUL. So the
// same materials are loaded from the result, bit for bit, and formatting it again changes nothing. Throws
// CParseError where the library does not read the text.
[[nodiscard]] std::string FormatMaterialText(std::string_view text);
