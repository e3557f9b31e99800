#include "chooser/TypeNames.h"

#include "MaterialLibrary/IMatLib.h"
#include "MaterialLibrary/IMaterial.h"

#include <string_view>
#include <unordered_set>

std::vector<std::string> ListTypeNames(const IMatLib& library, int materialKind)
{
    std::vector<std::string> names;
    std::unordered_set<std::string_view> seen;
    for (int index = library.GetMaterialCount() - 1; index >= 0; --index)
    {
        const IMaterial* const material = library.GetMaterial(index);
        if (material->GetKind() == materialKind && seen.insert(material->GetTypeName()).second)
        {
            names.emplace_back(material->GetTypeName());
        }
    }
    return names;
}
