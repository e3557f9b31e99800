#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <variant>

using TextArgument = std::variant<std::string_view, unsigned>;

// Replaces the placeholders of a text from a string table, "%s" and "%u" ("%d" and "%i" alike), by the
// arguments in their order, and "%%" by "%". Width, precision of a text and the flags "-" and "0" count;
// other flags and all length letters ("%hs", "%lu", "%I64u") make no difference. The text may come from the
// host: a placeholder that has no argument left becomes blank, one of another letter stays as it is.
[[nodiscard]] std::string FormatText(std::string_view format, std::initializer_list<TextArgument> arguments);
