#pragma once

#include "resources/TextIds.h"

#include <string_view>

// The library's own sentence for that reason to refuse a file.
[[nodiscard]] std::string_view GetReasonText(MLTEXTID reason);
