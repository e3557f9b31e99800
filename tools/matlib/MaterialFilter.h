#pragma once

#include "tools/matlib/Options.h"

class IMaterial;

// What a list may be sorted by.
inline constexpr const char* sortKeys[] = {"name",       "kind",      "type",       "vendor",
                                           "technology", "thickness", "resistivity"};

// The materials that pass the filter, in its order. Materials that lack the sort key's number come last.
[[nodiscard]] std::vector<IMaterial*> FilterMaterials(std::vector<IMaterial*> materials,
                                                      const ListFilter& filter);
