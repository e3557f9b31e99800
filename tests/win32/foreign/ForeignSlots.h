#pragma once

#include "MaterialLibrary/MaterialLibrary.h"

// Each of these calls one slot from code of the other C++ object format, as a host of another compiler does.
extern "C"
{
    int ForeignGetMaterialCount(IMatLib* library);
    IMaterial* ForeignGetMaterial(IMatLib* library, int index);
    IMaterial* ForeignFindMaterial(IMatLib* library, const char* name);
    IMaterial* ForeignChooseMaterial(IMatLib* library, IMaterial* current, int kind);

    const char* ForeignGetName(IMaterial* material);
    int ForeignGetKind(IMaterial* material);
    const char* ForeignGetTypeName(IMaterial* material);
    const char* ForeignGetVendor(IMaterial* material);
    const char* ForeignGetComment(IMaterial* material);
    int ForeignCountTables(IMaterial* material, int kind);
    IMaterialTable* ForeignGetTable(IMaterial* material, int kind, double temperature);
    IMaterialTable* ForeignGetTableAt(IMaterial* material, int index);
    void ForeignGetValue(IMaterial* material, int kind, double frequency, double* value, double temperature);
    bool ForeignGetIntAttribute(IMaterial* material, MLATTRIBID id, int* value);
    bool ForeignGetAttribute(IMaterial* material, MLATTRIBID id, double* value);

    int ForeignGetTableKind(IMaterialTable* table);
    double ForeignGetTemperature(IMaterialTable* table);
    int ForeignGetEntryCount(IMaterialTable* table);
    const MLTBLENTRY* ForeignGetEntry(IMaterialTable* table, int index);
}
