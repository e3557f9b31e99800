#pragma once

#include <string_view>
#include <vector>

// The non-empty pieces of a list separated by ";", in their order. They point into `list`.
[[nodiscard]] std::vector<std::string_view> SplitPathList(std::string_view list);
