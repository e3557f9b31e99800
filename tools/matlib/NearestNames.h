#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

// Whether the texts are the same apart from the case of the letters A to Z.
[[nodiscard]] bool EqualIgnoringCase(std::string_view a, std::string_view b);

// Up to three of the names that somebody who typed `wanted` may have meant, likeliest first: few
// characters different, or one containing the other, whatever the letter case. Each name once.
[[nodiscard]] std::vector<std::string> FindNearestNames(std::string_view wanted,
                                                        std::span<const std::string> names);
