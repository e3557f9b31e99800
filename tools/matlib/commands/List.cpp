#include "tools/matlib/CMaterialSet.h"
#include "tools/matlib/CTextTable.h"
#include "tools/matlib/Console.h"
#include "tools/matlib/Json.h"
#include "tools/matlib/MaterialFacts.h"
#include "tools/matlib/MaterialFilter.h"
#include "tools/matlib/Wording.h"
#include "tools/matlib/commands/Commands.h"

namespace
{
std::string JoinTemperatures(IMaterial& material)
{
    std::string text;
    for (const double temperature : ListTemperatures(material))
    {
        text += (text.empty() ? "" : ", ") + FormatNumber(temperature);
    }
    return text;
}

std::string RenderList(const std::vector<IMaterial*>& materials)
{
    using enum CTextTable::Align;
    CTextTable table({{"Name", left},
                      {"Kind", left},
                      {"Type", left},
                      {"Vendor", left},
                      {"Technology", left},
                      {"Thickness/um", right},
                      {"Resistivity/ohm m", right},
                      {"Temperatures/C", left}});
    for (IMaterial* material : materials)
    {
        const auto thickness = FindAttribute(*material, MLATTR_THICKNESS);
        const auto resistivity = FindAttribute(*material, MLATTR_BULK_RESISTIVITY);
        table.AddRow({MakePrintable(material->GetName()), std::string(KindWord(*material)),
                      MakePrintable(material->GetTypeName()), MakePrintable(material->GetVendor()),
                      std::string(TechnologyWord(*material)),
                      thickness ? FormatNumber(ToMicrometres(*thickness)) : "",
                      resistivity ? FormatNumber(*resistivity) : "", JoinTemperatures(*material)});
    }
    return materials.empty()
               ? "no materials\n"
               : table.Render() + FormatCount(static_cast<int>(materials.size()), "material") + "\n";
}

Json ListAsJson(const std::vector<IMaterial*>& materials)
{
    Json list = Json::array();
    for (IMaterial* material : materials)
    {
        Json json = DescribeMaterial(*material);
        json["temperatures_c"] = ListTemperatures(*material);
        list.push_back(std::move(json));
    }
    return list;
}
} // namespace

int RunList(const Options& options, ILibraryHost& host)
{
    const CMaterialSet set(host, options);
    const auto materials = FilterMaterials(set.ListAll(), options.filter);
    PrintOutput(options.json ? RenderJson(ListAsJson(materials)) : RenderList(materials));
    return set.GetExitCode();
}
