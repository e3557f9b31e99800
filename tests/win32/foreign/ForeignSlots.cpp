// Compiled to the object format of another C++ compiler, without any library behind it.
#include "tests/win32/foreign/ForeignSlots.h"

// Marks objects that calculate with floating-point numbers; normally in that compiler's run-time library.
extern "C" int _fltused = 0;

int ForeignGetMaterialCount(IMatLib* library)
{
    return library->GetMaterialCount();
}

IMaterial* ForeignGetMaterial(IMatLib* library, int index)
{
    return library->GetMaterial(index);
}

IMaterial* ForeignFindMaterial(IMatLib* library, const char* name)
{
    return library->FindMaterial(name);
}

IMaterial* ForeignChooseMaterial(IMatLib* library, IMaterial* current, int kind)
{
    return library->ChooseMaterial(current, kind);
}

const char* ForeignGetName(IMaterial* material)
{
    return material->GetName();
}

int ForeignGetKind(IMaterial* material)
{
    return material->GetKind();
}

const char* ForeignGetTypeName(IMaterial* material)
{
    return material->GetTypeName();
}

const char* ForeignGetVendor(IMaterial* material)
{
    return material->GetVendor();
}

const char* ForeignGetComment(IMaterial* material)
{
    return material->GetComment();
}

int ForeignCountTables(IMaterial* material, int kind)
{
    return material->CountTables(kind);
}

IMaterialTable* ForeignGetTable(IMaterial* material, int kind, double temperature)
{
    return material->GetTable(kind, temperature);
}

IMaterialTable* ForeignGetTableAt(IMaterial* material, int index)
{
    return material->GetTableAt(index);
}

void ForeignGetValue(IMaterial* material, int kind, double frequency, double* value, double temperature)
{
    material->GetValue(kind, frequency, value, temperature);
}

bool ForeignGetIntAttribute(IMaterial* material, MLATTRIBID id, int* value)
{
    return material->GetIntAttribute(id, value);
}

bool ForeignGetAttribute(IMaterial* material, MLATTRIBID id, double* value)
{
    return material->GetAttribute(id, value);
}

int ForeignGetTableKind(IMaterialTable* table)
{
    return table->GetTableKind();
}

double ForeignGetTemperature(IMaterialTable* table)
{
    return table->GetTemperature();
}

int ForeignGetEntryCount(IMaterialTable* table)
{
    return table->GetEntryCount();
}

const MLTBLENTRY* ForeignGetEntry(IMaterialTable* table, int index)
{
    return &table->GetEntry(index);
}
