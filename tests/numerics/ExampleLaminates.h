#pragma once

#include "model/CFakeMaterialLib.h"
#include "model/CMaterial.h"
#include "reader/LoadMaterialFile.h"
#include "tests/numerics/ClosedForm.h"

#include <set>
#include <string>

// A dielectric of the example materials at one of its temperatures.
struct ExampleLaminate
{
    std::string name;
    double temperature; // °C
    Laminate tables;
};

inline std::vector<MLTBLENTRY> CopyRows(const IMaterialTable& table)
{
    std::vector<MLTBLENTRY> rows;
    for (int i = 0; i < table.GetEntryCount(); ++i)
    {
        rows.push_back(table.GetEntry(i));
    }
    return rows;
}

// All of examples/materials/DefaultMaterialD.mat that have several rows, in their order.
inline std::vector<ExampleLaminate> LoadExampleLaminates()
{
    CFakeMaterialLib library;
    LoadMaterialFile(library, ML_SOURCE_DIR "/examples/materials/DefaultMaterialD.mat");
    std::vector<ExampleLaminate> laminates;
    for (int i = 0; i < library.GetMaterialCount(); ++i)
    {
        IMaterial& material = *library.GetMaterial(i);
        std::set<double> temperatures;
        for (int k = 0; k < material.CountTables(MLTABLE_ALL); ++k)
        {
            temperatures.insert(material.GetTableAt(k)->GetTemperature());
        }
        for (const double temperature : temperatures)
        {
            ExampleLaminate laminate{material.GetName(),
                                     temperature,
                                     {CopyRows(*material.GetTable(MLTABLE_ER, temperature)),
                                      CopyRows(*material.GetTable(MLTABLE_LOSS_TANGENT, temperature))}};
            if (laminate.tables.loss.size() > 1)
            {
                laminates.push_back(std::move(laminate));
            }
        }
    }
    return laminates;
}
