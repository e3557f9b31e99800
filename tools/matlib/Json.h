#pragma once

#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <string_view>

class IMaterial;

// JSON keeps the order in which its keys were set. Numbers are SI units and read back exactly.
using Json = nlohmann::ordered_json;

// The material's own facts, without its tables.
[[nodiscard]] Json DescribeMaterial(const IMaterial& material);

// The number, or null.
[[nodiscard]] Json NumberOrNull(const std::optional<double>& number);

// The text with a line break at its end. Bytes that are no UTF-8 (names in another code page) become the
// replacement character.
[[nodiscard]] std::string RenderJson(const Json& json);
