#include "model/CFakeMaterialLib.h"

#include "framework/CModuleState.h"
#include "model/CMaterial.h"
#include "resources/Texts.h"
#include "shared/MessageManager/MessageManager.h"

#include <algorithm>
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
    return materials.GetCount();
}

IMaterial* CFakeMaterialLib::GetMaterial(int index) const
{
    const CModuleStateScope scope;
    return materials.IsIndex(index) ? materials[index] : nullptr;
}

IMaterial* CFakeMaterialLib::FindMaterial(const char* name)
{
    const CModuleStateScope scope;
    const std::string_view wanted = name != nullptr ? name : "";
    if (wanted.empty())
    {
        return nullptr;
    }
    if (unvisited == materials.GetCount())
    {
        nameCache.Reset(materials.GetCount());
    }
    if (IMaterial* const known = nameCache.Find(materials.GetAll(), wanted))
    {
        return known;
    }
    while (unvisited > 0)
    {
        --unvisited;
        // Of equal names the first one met, the last added, stays.
        nameCache.Insert(materials.GetAll(), unvisited);
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
    return arena.Make<CMaterial>(arena, fit);
}

CMaterial& CFakeMaterialLib::MakeMaterial(const MLLEGACYRECORD& record)
{
    return arena.Make<CMaterial>(record, arena, fit);
}

void CFakeMaterialLib::AddMaterial(CMaterial& material)
{
    materials.Append(arena, &material);
    unvisited = materials.GetCount(); // the newest material of a name is the one to find
}

bool CFakeMaterialLib::HasMaterialOfKind(int kind) const
{
    const auto all = materials.GetAll();
    return std::any_of(all.rbegin(), all.rend(),
                       [kind](const IMaterial* material) { return material->GetKind() == kind; });
}

void CFakeMaterialLib::RemoveAllMaterials() noexcept
{
    nameCache.Clear();
    unvisited = 0;
    materials.Release(arena);
    fit.Forget();
    arena.Release();
}
