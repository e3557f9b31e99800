#pragma once

#include "MaterialLibrary/MaterialLibrary.h"

// Each of these calls one slot from code of the other C++ object format, as a host of another compiler does.
struct ForeignSlots
{
    int (*getMaterialCount)(IMatLib*);
    IMaterial* (*getMaterial)(IMatLib*, int);
    IMaterial* (*findMaterial)(IMatLib*, const char*);
    IMaterial* (*chooseMaterial)(IMatLib*, IMaterial*, int);

    const char* (*getName)(IMaterial*);
    int (*getKind)(IMaterial*);
    const char* (*getTypeName)(IMaterial*);
    const char* (*getVendor)(IMaterial*);
    const char* (*getComment)(IMaterial*);
    int (*countTables)(IMaterial*, int);
    IMaterialTable* (*getTable)(IMaterial*, int, double);
    IMaterialTable* (*getTableAt)(IMaterial*, int);
    void (*getValue)(IMaterial*, int, double, double*, double);
    bool (*getIntAttribute)(IMaterial*, MLATTRIBID, int*);
    bool (*getAttribute)(IMaterial*, MLATTRIBID, double*);

    int (*getTableKind)(IMaterialTable*);
    double (*getTemperature)(IMaterialTable*);
    int (*getEntryCount)(IMaterialTable*);
    const MLTBLENTRY* (*getEntry)(IMaterialTable*, int);
};

extern "C" const ForeignSlots foreignSlots;
