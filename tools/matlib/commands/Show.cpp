#include "tools/matlib/CMaterialSet.h"
#include "tools/matlib/CTextTable.h"
#include "tools/matlib/Console.h"
#include "tools/matlib/Json.h"
#include "tools/matlib/MaterialFacts.h"
#include "tools/matlib/Wording.h"
#include "tools/matlib/commands/Commands.h"

namespace
{
std::string RenderFact(std::string_view title, std::string_view fact)
{
    constexpr std::size_t width = 14;
    std::string line(title);
    line.resize(width, ' ');
    return line + (fact.empty() ? "-" : MakePrintable(fact)) + "\n";
}

std::string RenderFacts(const IMaterial& material)
{
    std::string text = RenderFact("Name", material.GetName());
    text += RenderFact("Kind", KindWord(material));
    text += RenderFact("Type", material.GetTypeName());
    text += RenderFact("Vendor", material.GetVendor());
    text += RenderFact("Comment", material.GetComment());
    if (material.GetKind() == MLMATERIAL_METAL)
    {
        const auto resistivity = FindAttribute(material, MLATTR_BULK_RESISTIVITY);
        return text + RenderFact("Resistivity", resistivity ? FormatNumber(*resistivity) + " ohm m" : "");
    }
    const auto thickness = FindAttribute(material, MLATTR_THICKNESS);
    text += RenderFact("Technology", TechnologyWord(material));
    text += RenderFact("Thickness", thickness ? FormatNumber(ToMicrometres(*thickness)) + " um (" +
                                                    FormatNumber(ToMils(*thickness)) + " mil)"
                                              : "");
    return text;
}

std::string RenderTable(const IMaterialTable& table)
{
    using enum CTextTable::Align;
    const PropertyWords& words = WordsOf(table.GetTableKind());
    const std::string title = std::string(words.title) + " at " + FormatNumber(table.GetTemperature()) + " C";
    const int count = table.GetEntryCount();
    if (count == 0)
    {
        return title + ", no rows\n";
    }
    CTextTable rows({{"Frequency", right}, {std::string(words.title), right}});
    for (int index = 0; index < count; ++index)
    {
        const MLTBLENTRY& row = table.GetEntry(index);
        rows.AddRow({FormatFrequency(row.frequency), FormatNumber(row.value)});
    }
    return title + (count == 1 ? ", the same at all frequencies\n" : "\n") + rows.Render(2);
}

Json MaterialAsJson(IMaterial& material)
{
    Json json = DescribeMaterial(material);
    json["tables"] = Json::array();
    for (const IMaterialTable* table : ListTables(material))
    {
        Json rows = Json::array();
        for (int index = 0; index < table->GetEntryCount(); ++index)
        {
            const MLTBLENTRY& row = table->GetEntry(index);
            rows.push_back({{"frequency_hz", row.frequency}, {"value", row.value}});
        }
        json["tables"].push_back({{"property", WordsOf(table->GetTableKind()).key},
                                  {"temperature_c", table->GetTemperature()},
                                  {"rows", std::move(rows)}});
    }
    return json;
}

std::string RenderMaterial(IMaterial& material)
{
    std::string text = RenderFacts(material);
    for (const IMaterialTable* table : ListTables(material))
    {
        text += "\n" + RenderTable(*table);
    }
    return text;
}
} // namespace

int RunShow(const Options& options, ILibraryHost& host)
{
    const CMaterialSet set(host, options);
    IMaterial& material = set.Find(options.material);
    PrintOutput(options.json ? RenderJson(MaterialAsJson(material)) : RenderMaterial(material));
    return set.GetExitCode();
}
