// Kinds, attribute identifiers and table rows shared by the library's interfaces.
//
// Everything here has the same layout under every C++ compiler for 64-bit Windows and Linux.
#pragma once

// Attributes of a material: IMaterial::GetAttribute, IMaterial::GetIntAttribute.
enum MLATTRIBID : int
{
    MLATTR_THICKNESS = 0,       // double, layer thickness in metres (dielectrics)
    MLATTR_TECHNOLOGY = 1,      // integer, MLTECHNOLOGY (dielectrics)
    MLATTR_BULK_RESISTIVITY = 2 // double, bulk resistivity in ohm metres (metals)
};

// Kinds of material: IMaterial::GetKind, IMatLib::ChooseMaterial.
enum MLMATERIALKIND : int
{
    MLMATERIAL_NOT_SET = -1,
    MLMATERIAL_DIELECTRIC = 0,
    MLMATERIAL_METAL = 1
};

// Properties that a table can hold: IMaterialTable::GetTableKind, IMaterial::GetValue. All four are
// dimensionless.
enum MLTABLEKIND : int
{
    MLTABLE_ALL = -1,            // only as argument of IMaterial::CountTables
    MLTABLE_ER = 0,              // relative permittivity (dielectrics)
    MLTABLE_LOSS_TANGENT = 1,    // loss tangent (dielectrics)
    MLTABLE_ROUGHNESS_TOP = 2,   // roughness factor of the top face (metals)
    MLTABLE_ROUGHNESS_BOTTOM = 3 // roughness factor of the bottom face (metals)
};

// Technology of a dielectric layer: the value of MLATTR_TECHNOLOGY.
enum MLTECHNOLOGY : int
{
    MLTECHNOLOGY_UNKNOWN = -1,
    MLTECHNOLOGY_CORE = 0,
    MLTECHNOLOGY_PREPREG = 1,
    MLTECHNOLOGY_FLEXCORE = 2
};

// One row of a table.
struct MLTBLENTRY
{
    double frequency; // hertz
    double value;     // in the unit of the table's kind
};

static_assert(sizeof(int) == 4 && sizeof(bool) == 1, "the interfaces rely on a 32-bit int and an 8-bit bool");
static_assert(sizeof(MLATTRIBID) == 4 && sizeof(MLTBLENTRY) == 16, "fixed layout");
