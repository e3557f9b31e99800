// Compiled to the object format of another C++ compiler, without any library behind it.
#include "tests/win32/foreign/ForeignSlots.h"

// Marks objects that calculate with floating-point numbers; normally in that compiler's run-time library.
extern "C" int _fltused = 0;

extern "C" const ForeignSlots foreignSlots = {
    .getMaterialCount = [](IMatLib* library) { return library->GetMaterialCount(); },
    .getMaterial = [](IMatLib* library, int index) { return library->GetMaterial(index); },
    .findMaterial = [](IMatLib* library, const char* name) { return library->FindMaterial(name); },
    .chooseMaterial = [](IMatLib* library, IMaterial* current, int kind)
    { return library->ChooseMaterial(current, kind); },

    .getName = [](IMaterial* material) { return material->GetName(); },
    .getKind = [](IMaterial* material) { return material->GetKind(); },
    .getTypeName = [](IMaterial* material) { return material->GetTypeName(); },
    .getVendor = [](IMaterial* material) { return material->GetVendor(); },
    .getComment = [](IMaterial* material) { return material->GetComment(); },
    .countTables = [](IMaterial* material, int kind) { return material->CountTables(kind); },
    .getTable = [](IMaterial* material, int kind, double temperature)
    { return material->GetTable(kind, temperature); },
    .getTableAt = [](IMaterial* material, int index) { return material->GetTableAt(index); },
    .getValue = [](IMaterial* material, int kind, double frequency, double* value, double temperature)
    { material->GetValue(kind, frequency, value, temperature); },
    .getIntAttribute = [](IMaterial* material, MLATTRIBID id, int* value)
    { return material->GetIntAttribute(id, value); },
    .getAttribute = [](IMaterial* material, MLATTRIBID id, double* value)
    { return material->GetAttribute(id, value); },

    .getTableKind = [](IMaterialTable* table) { return table->GetTableKind(); },
    .getTemperature = [](IMaterialTable* table) { return table->GetTemperature(); },
    .getEntryCount = [](IMaterialTable* table) { return table->GetEntryCount(); },
    .getEntry = [](IMaterialTable* table, int index) { return &table->GetEntry(index); },
};
