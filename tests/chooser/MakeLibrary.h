#pragma once

#include "model/CFakeMaterialLib.h"
#include "model/CMaterial.h"
#include "model/IMaterialTableIO.h"

#include <initializer_list>

// Appends a material without tables to the library.
inline CMaterial& AddMaterial(CFakeMaterialLib& library, int kind, const char* name, const char* type = "")
{
    CMaterial& material = library.MakeMaterial();
    material.SetKind(kind);
    material.SetName(name);
    material.SetTypeName(type);
    library.AddMaterial(material);
    return material;
}

// Appends a table with the values at 1 GHz, 2 GHz, ...
inline void AddTable(CMaterial& material, int tableKind, double temperature,
                     std::initializer_list<double> values)
{
    IMaterialTableIO* const table = material.AddTable(tableKind);
    table->SetTemperature(temperature);
    double frequency = 0.0;
    for (const double value : values)
    {
        frequency += 1e9;
        table->AddEntry({frequency, value});
    }
}
