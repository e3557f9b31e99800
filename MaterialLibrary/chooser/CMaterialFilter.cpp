#include "chooser/CMaterialFilter.h"

#include "MaterialLibrary/IMatLib.h"
#include "MaterialLibrary/IMaterial.h"
#include "resources/Texts.h"

#include <string_view>
#include <unordered_set>

CMaterialFilter::CMaterialFilter(int materialKind, const ChooserFilterSettings& filterSettings)
    : kind(materialKind), settings(&filterSettings), allTypes(LoadText(MLTEXT_ALL)), type(allTypes)
{
}

bool CMaterialFilter::Accept(IMaterial* material)
{
    if (material == nullptr || material->GetKind() != kind)
    {
        return false;
    }
    return kind == MLMATERIAL_METAL ? AcceptMetal(*material) : AcceptDielectric(*material);
}

bool CMaterialFilter::AcceptMetal(const IMaterial& material) const
{
    return type == allTypes || type == material.GetTypeName();
}

bool CMaterialFilter::AcceptDielectric(const IMaterial& material) const
{
    int technology = MLTECHNOLOGY_UNKNOWN;
    if (settings->technology != ChooserFilterSettings::allTechnologies &&
        material.GetIntAttribute(MLATTR_TECHNOLOGY, &technology) && technology != settings->technology)
    {
        return false;
    }
    double thickness = 0.0;
    return !material.GetAttribute(MLATTR_THICKNESS, &thickness) ||
           !(thickness < settings->thicknessMinimum || thickness > settings->thicknessMaximum);
}

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
