#pragma once

#include "MaterialLibrary/MLTypes.h"

class IMaterial;

// A library of materials, created by CreateMaterialLibrary and released by FreeMaterialLibrary.
//
// Make all calls on the host's user-interface thread. Operations throw std::bad_alloc when memory is
// exhausted, and nothing else.
//
// The order of the operations is a binary contract: hosts are built with other compilers.
class IMatLib
{
public:
    // Number of materials, 0 or more.
    [[nodiscard]] virtual int GetMaterialCount() const = 0;

    // The material at `index`, 0 ... GetMaterialCount() - 1, in the order of loading. Null for any other
    // index.
    [[nodiscard]] virtual IMaterial* GetMaterial(int index) const = 0;

    // The material with that name, compared byte by byte and so case-sensitive. If several share the
    // name, the one loaded last. Null if there is none or if the name is empty or null.
    [[nodiscard]] virtual IMaterial* FindMaterial(const char* name) = 0;

    // Opens the dialog "Select Material Models" over the host's active window and returns when it closes.
    // `current` is the material assigned so far, or null. `materialKind` is MLMATERIAL_DIELECTRIC or
    // MLMATERIAL_METAL. Returns the material that the user assigned. Null if the user cancelled or
    // assigned none, or if the dialog could not be shown.
    [[nodiscard]] virtual IMaterial* ChooseMaterial(IMaterial* current, int materialKind) = 0;

    // The last slot: destroys the library as FreeMaterialLibrary does. Only hosts built with the library's
    // compiler may call it. All others call FreeMaterialLibrary.
    virtual ~IMatLib() = default;
};
