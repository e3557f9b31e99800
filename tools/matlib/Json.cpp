#include "tools/matlib/Json.h"

#include "tools/matlib/MaterialFacts.h"
#include "tools/matlib/Wording.h"

Json NumberOrNull(const std::optional<double>& number)
{
    return number ? Json(*number) : Json(nullptr);
}

Json DescribeMaterial(const IMaterial& material)
{
    const std::string_view technology = TechnologyWord(material);
    Json json;
    json["name"] = material.GetName();
    json["kind"] = KindWord(material);
    json["type"] = material.GetTypeName();
    json["vendor"] = material.GetVendor();
    json["comment"] = material.GetComment();
    json["technology"] = technology.empty() ? Json(nullptr) : Json(technology);
    json["thickness_m"] = NumberOrNull(FindAttribute(material, MLATTR_THICKNESS));
    json["bulk_resistivity_ohm_m"] = NumberOrNull(FindAttribute(material, MLATTR_BULK_RESISTIVITY));
    return json;
}

std::string RenderJson(const Json& json)
{
    return json.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}
