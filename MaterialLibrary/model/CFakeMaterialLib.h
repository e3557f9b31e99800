#pragma once

#include "MaterialLibrary/IMatLib.h"
#include "model/CArena.h"
#include "model/CCompactArray.h"
#include "model/CKeptFit.h"
#include "model/CNameIndex.h"

class CMaterial;
struct MLLEGACYRECORD;

// A library of materials in memory. Its materials and all that they own live in the library's arena:
// removing them runs none of their destructors, the arena gives their memory back at once.
class CFakeMaterialLib final : public IMatLib
{
public:
    // Opens the dialog for ChooseMaterial. Returns the material chosen, or null.
    using Chooser = IMaterial* (*)(IMatLib& library, IMaterial* current, int materialKind);

    // Sets how every library of this module lets the user choose; null: this build has no dialog.
    static void SetChooser(Chooser chooser);

    // An empty library whose materials take their memory from `upstream`.
    explicit CFakeMaterialLib(std::pmr::memory_resource* upstream = std::pmr::new_delete_resource());
    ~CFakeMaterialLib() override;
    CFakeMaterialLib(const CFakeMaterialLib&) = delete;
    CFakeMaterialLib& operator=(const CFakeMaterialLib&) = delete;

    [[nodiscard]] int GetMaterialCount() const override;
    [[nodiscard]] IMaterial* GetMaterial(int index) const override;
    [[nodiscard]] IMaterial* FindMaterial(const char* name) override;
    [[nodiscard]] IMaterial* ChooseMaterial(IMaterial* current, int materialKind) override;

    // All materials, without a switch to the module's state: any thread may ask.
    [[nodiscard]] std::span<IMaterial* const> GetMaterials() const { return materials.GetAll(); }

    // Makes a material in the library's arena. It is no part of the library until AddMaterial.
    [[nodiscard]] CMaterial& MakeMaterial();
    [[nodiscard]] CMaterial& MakeMaterial(const MLLEGACYRECORD& record);

    // Appends a material that MakeMaterial made.
    void AddMaterial(CMaterial& material);

    // Whether one of the materials is of that kind.
    [[nodiscard]] bool HasMaterialOfKind(int kind) const;

    // Appends the four built-in sample materials.
    void FillSampleLibrary();

    // Empties the library. Every material handed out is invalid afterwards.
    void RemoveAllMaterials() noexcept;

private:
    CArena arena;
    CKeptFit fit; // of the material that was asked last
    CCompactArray<IMaterial*> materials;

    // Names met so far by look-ups, which walk the materials once, from the last to the first.
    CNameIndex nameCache;
    int unvisited = 0; // materials below this index were not met yet
};
