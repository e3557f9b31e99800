#pragma once

#include "MaterialLibrary/MLTypes.h"

#include <optional>
#include <string>
#include <vector>

// One table of a material to be written.
struct TableDescription
{
    MLTABLEKIND kind = MLTABLE_ER;
    double temperature = 25.0;    // degrees Celsius
    std::vector<MLTBLENTRY> rows; // written in this order; (1 GHz, v) alone is the constant VALUE = v
};

// A material to be written: what a file can say of one. An empty text, an unknown technology and a number
// without a value are not written; the material that is loaded answers the same without them.
struct MaterialDescription
{
    MLMATERIALKIND kind = MLMATERIAL_DIELECTRIC;
    std::string name; // this and the other texts: any bytes but NUL and the double quote
    std::string type;
    std::string vendor;
    std::string comment;
    MLTECHNOLOGY technology = MLTECHNOLOGY_UNKNOWN; // of a dielectric
    std::optional<double> thickness;                // m, of a dielectric
    std::optional<double> resistivity;              // ohm m, of a metal
    std::vector<TableDescription> tables;           // of this kind of material
    std::vector<std::string> remarks;               // lines of comment before the material, without the "*"
};
