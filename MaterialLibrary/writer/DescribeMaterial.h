#pragma once

#include "writer/MaterialDescription.h"

class CMaterial;

// What there is to write of a material that was loaded; it has no remarks.
[[nodiscard]] MaterialDescription DescribeMaterial(const CMaterial& material);
