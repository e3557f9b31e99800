#include "MaterialLibrary/model/CFakeMaterialLib.h"

#include "shared/MessageManager/MessageManager.h"
#include "shared/ModuleState/CModuleState.h"

#include "MaterialLibrary/model/CMaterial.h"
#include "MaterialLibrary/resources/Texts.h"

#include <string_view>

namespace
{
CFakeMaterialLib::Chooser moduleChooser = nullptr;
}

void CFakeMaterialLib::SetChooser(Chooser chooser)
{
    moduleChooser = chooser;
}

CFakeMaterialLib::CFakeMaterialLib(std::pmr::memory_resource* upstream) : arena(upstream) {}

CFakeMaterialLib::~CFakeMaterialLib()
{
    RemoveAllMaterials();
}

int CFakeMaterialLib::GetMaterialCount() const
{
    const CModuleStateScope scope;
    return static_cast<int>(materials.size());
}

IMaterial* CFakeMaterialLib::GetMaterial(int index) const
{
    const CModuleStateScope scope;
    const bool inRange = index >= 0 && static_cast<std::size_t>(index) < materials.size();
    return inRange ? materials[static_cast<std::size_t>(index)] : nullptr;
}

IMaterial* CFakeMaterialLib::FindMaterial(const char* name)
{
    const CModuleStateScope scope;
    const std::string_view wanted = name != nullptr ? name : "";
    if (wanted.empty())
    {
        return nullptr;
    }
    if (unvisited == materials.size())
    {
        nameCache.Reset(materials.size());
    }
    if (IMaterial* const known = nameCache.Find(materials, wanted))
    {
        return known;
    }
    while (unvisited > 0)
    {
        --unvisited;
        nameCache.Insert(materials, unvisited); // of equal names the first one met, the last added, stays
        if (wanted == materials[unvisited]->GetName())
        {
            return materials[unvisited];
        }
    }
    return nullptr;
}

IMaterial* CFakeMaterialLib::ChooseMaterial(IMaterial* current, int materialKind)
{
    const CModuleStateScope scope;
    if (moduleChooser != nullptr)
    {
        return moduleChooser(*this, current, materialKind);
    }
    ShowWarning(LoadText(MLTEXT_NO_CHOOSER).c_str());
    return nullptr;
}

CMaterial& CFakeMaterialLib::MakeMaterial()
{
    void* const storage = arena.allocate(sizeof(CMaterial), alignof(CMaterial));
    return *::new (storage) CMaterial(arena);
}

CMaterial& CFakeMaterialLib::MakeMaterial(const MLLEGACYRECORD& record)
{
    void* const storage = arena.allocate(sizeof(CMaterial), alignof(CMaterial));
    return *::new (storage) CMaterial(record, arena);
}

void CFakeMaterialLib::AddMaterial(CMaterial& material)
{
    materials.push_back(&material);
    unvisited = materials.size(); // the newest material of a name is the one to find
}

void CFakeMaterialLib::RemoveAllMaterials() noexcept
{
    nameCache.Clear();
    unvisited = 0;
    std::vector<IMaterial*>().swap(materials);
    arena.Release();
}
