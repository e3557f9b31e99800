#pragma once

#include <string_view>

// A commented material file to start from: "laminate" or "foil". Empty for another name.
[[nodiscard]] std::string_view GetTemplate(std::string_view name);
