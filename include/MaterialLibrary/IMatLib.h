#pragma once

#include "MaterialLibrary/MLTypes.h"

class IMaterial;

// A library of materials, made by CreateMaterialLibrary and released by FreeMaterialLibrary.
//
// All calls belong on the host's user-interface thread. Apart from std::bad_alloc when memory is
// exhausted no exception leaves an operation.
//
// The order of the operations is a binary contract: hosts are built with other compilers.
class IMatLib
{
public:
    // Number of materials, 0 or more.
    [[nodiscard]] virtual int GetMaterialCount() const = 0;

    // The material at `index`, 0 ... GetMaterialCount() - 1, in the order of loading; null for any
    // other index.
    [[nodiscard]] virtual IMaterial* GetMaterial(int index) const = 0;

    // The material of that name (compared byte by byte, so case-sensitive); the one loaded last where
    // several share it. Null when there is none or the name is empty. `name` must not be null.
    [[nodiscard]] virtual IMaterial* FindMaterial(const char* name) = 0;

    // Opens the dialog "Select Material Models" over the host's active window and waits for its end.
    // `current` is the material assigned so far (may be null), `materialKind` is MLMATERIAL_DIELECTRIC
    // or MLMATERIAL_METAL. Returns the material that the user assigned, or null when the user cancelled,
    // assigned none, or the dialog could not be shown.
    [[nodiscard]] virtual IMaterial* ChooseMaterial(IMaterial* current, int materialKind) = 0;

    // The last slot: destroys the library as FreeMaterialLibrary does. Only for hosts built with the
    // compiler of the library; every other host calls FreeMaterialLibrary.
    virtual ~IMatLib() = default;
};
