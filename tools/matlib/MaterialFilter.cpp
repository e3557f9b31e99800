#include "tools/matlib/MaterialFilter.h"

#include "shared/Misc_String/CompareNatural.h"
#include "tools/matlib/MaterialFacts.h"
#include "tools/matlib/NearestNames.h"
#include "tools/matlib/Wording.h"

#include <algorithm>

namespace
{
bool Contains(std::string_view text, std::string_view part)
{
    for (std::size_t start = 0; start + part.size() <= text.size(); ++start)
    {
        if (EqualIgnoringCase(text.substr(start, part.size()), part))
        {
            return true;
        }
    }
    return false;
}

bool IsThickAs(const IMaterial& material, const LengthRange& range)
{
    constexpr double tolerance = 1e-9; // 1mil is 25.4 um, whatever the last digit says
    const auto thickness = FindAttribute(material, MLATTR_THICKNESS);
    return thickness && *thickness >= range.shortest * (1.0 - tolerance) &&
           *thickness <= range.longest * (1.0 + tolerance);
}

bool Passes(const IMaterial& material, const ListFilter& filter)
{
    const auto isWanted = [](const std::string& wanted, std::string_view own)
    { return wanted.empty() || EqualIgnoringCase(wanted, own); };
    const auto contains = [&filter](std::string_view text) { return Contains(text, filter.text); };
    return (!filter.kind || material.GetKind() == *filter.kind) &&
           isWanted(filter.type, material.GetTypeName()) && isWanted(filter.vendor, material.GetVendor()) &&
           isWanted(filter.technology, TechnologyWord(material)) &&
           (!filter.thickness || IsThickAs(material, *filter.thickness)) &&
           (contains(material.GetName()) || contains(material.GetTypeName()) ||
            contains(material.GetVendor()) || contains(material.GetComment()));
}

std::string TextOf(const IMaterial& material, const std::string& key)
{
    if (key == "name")
    {
        return material.GetName();
    }
    if (key == "kind")
    {
        return std::string(KindWord(material));
    }
    if (key == "technology")
    {
        return std::string(TechnologyWord(material));
    }
    return key == "type" ? material.GetTypeName() : material.GetVendor();
}

void SortMaterials(std::vector<IMaterial*>& materials, const std::string& key)
{
    if (key == "thickness" || key == "resistivity")
    {
        const MLATTRIBID attribute = key == "thickness" ? MLATTR_THICKNESS : MLATTR_BULK_RESISTIVITY;
        std::ranges::stable_sort(
            materials, {},
            [attribute](const IMaterial* material) {
                return FindAttribute(*material, attribute).value_or(std::numeric_limits<double>::infinity());
            });
        return;
    }
    std::ranges::stable_sort(materials,
                             [&key](const IMaterial* a, const IMaterial* b) {
                                 return CompareNatural(TextOf(*a, key).c_str(), TextOf(*b, key).c_str()) < 0;
                             });
}
} // namespace

std::vector<IMaterial*> FilterMaterials(std::vector<IMaterial*> materials, const ListFilter& filter)
{
    std::erase_if(materials, [&filter](const IMaterial* material) { return !Passes(*material, filter); });
    if (!filter.sortKey.empty())
    {
        SortMaterials(materials, filter.sortKey);
    }
    return materials;
}
