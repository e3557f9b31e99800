#pragma once

#include "MaterialLibrary/MLTypes.h"
#include "grid/GridStyle.h"
#include "resources/TextIds.h"

#include <span>

// What a column of a material grid shows. Columns are found by their key, never by their place.
enum ColumnKey : int
{
    COLUMNKEY_MARKER = 1,
    COLUMNKEY_TYPE = 2,
    COLUMNKEY_BULK_RESISTIVITY = 3,
    COLUMNKEY_THICKNESS = 4,
    COLUMNKEY_ER = 5,
    COLUMNKEY_LOSS_TANGENT = 6,
    COLUMNKEY_ROUGHNESS_TOP = 7,
    COLUMNKEY_ROUGHNESS_BOTTOM = 8,
    COLUMNKEY_MATERIAL = 9,
    COLUMNKEY_TEMPERATURE = 10,
    COLUMNKEY_TECHNOLOGY = 11,
    COLUMNKEY_VENDOR = 12,
    COLUMNKEY_COMMENT = 13
};

struct MaterialColumn
{
    ColumnKey key;
    MLTEXTID header;
    GridValueType valueType;
    MLMATERIALKIND hiddenFor; // MLMATERIAL_NOT_SET: shown for every kind
};

// All columns by ascending key.
[[nodiscard]] std::span<const MaterialColumn> GetMaterialColumns();
