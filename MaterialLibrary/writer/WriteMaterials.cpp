#include "writer/WriteMaterials.h"

#include "model/CMaterialTable.h"
#include "model/ITechnologyMapProvider.h"
#include "reader/Keywords.h"
#include "writer/FormatMaterialText.h"
#include "writer/SpellNumber.h"

#include <algorithm>
#include <cmath>

using Unwritable = CUnwritableError::Kind;

std::string CUnwritableError::GetText() const
{
    switch (kind)
    {
    case Unwritable::quote:
        return field + " holds a double quote, which no text of a material file can";
    case Unwritable::nul:
        return field + " holds a NUL character, which ends a material file";
    case Unwritable::lineEnd:
        return field + " hold a line end within a line";
    case Unwritable::notANumber:
        return field + " is no number";
    case Unwritable::kind:
        return "the material is neither a dielectric nor a metal";
    case Unwritable::mixedKinds:
        return "a file holds either dielectrics or metals, never both";
    case Unwritable::foreignValue:
        return field + " does not belong to this kind of material";
    case Unwritable::technology:
        return field + " is none of the known ones";
    }
    return field;
}

namespace
{
// The keys of the tables, by MLTABLEKIND.
constexpr std::string_view tableKeys[] = {keyword::er, keyword::lossTangent, keyword::roughTop,
                                          keyword::roughBottom};

class CMaterialText
{
public:
    void Add(const MaterialDescription& material, MLMATERIALKIND fileKind)
    {
        Need(material.kind == MLMATERIAL_DIELECTRIC || material.kind == MLMATERIAL_METAL, Unwritable::kind,
             {});
        Need(material.kind == fileKind, Unwritable::mixedKinds, {});
        kind = material.kind;
        std::ranges::for_each(material.remarks, [this](const std::string& line) { AddRemark(line); });
        Append("{", kind == MLMATERIAL_METAL ? keyword::metal : keyword::dielectric, "\n");
        AddText(keyword::name, material.name);
        AddText(keyword::type, material.type);
        AddTechnology(material.technology);
        AddText(keyword::vendor, material.vendor);
        AddText(keyword::comment, material.comment);
        AddNumber(keyword::thickness, material.thickness, MLMATERIAL_DIELECTRIC);
        AddNumber(keyword::resistivity, material.resistivity, MLMATERIAL_METAL);
        std::ranges::for_each(material.tables, [this](const TableDescription& table) { AddTable(table); });
        text += "}\n";
        ++index;
    }

    [[nodiscard]] std::string Take() { return std::move(text); }

private:
    void Need(bool isFine, Unwritable trouble, std::string_view field) const
    {
        if (!isFine)
        {
            throw CUnwritableError(trouble, index, std::string(field));
        }
    }

    template <class... Part>
    void Append(const Part&... parts)
    {
        (text.append(parts), ...);
    }

    void AddRemark(const std::string& line)
    {
        constexpr std::string_view field = "remarks";
        Need(line.find('\0') == std::string::npos, Unwritable::nul, field);
        Need(line.find_first_of("\r\n") == std::string::npos, Unwritable::lineEnd, field);
        Append(line.empty() ? "*" : "* ", line, "\n");
    }

    void AddText(std::string_view key, const std::string& value)
    {
        Need(value.find('\0') == std::string::npos, Unwritable::nul, key);
        Need(value.find('"') == std::string::npos, Unwritable::quote, key);
        if (!value.empty())
        {
            Append("(", key, " = \"", value, "\")\n");
        }
    }

    void AddTechnology(MLTECHNOLOGY technology)
    {
        if (technology == MLTECHNOLOGY_UNKNOWN)
        {
            return;
        }
        const std::string word = GetTechnologyMap().GetTechnologyName(technology);
        Need(kind == MLMATERIAL_DIELECTRIC, Unwritable::foreignValue, keyword::technology);
        Need(!word.empty(), Unwritable::technology, keyword::technology);
        Append("(", keyword::technology, " = ", word, ")\n");
    }

    void AddNumber(std::string_view key, std::optional<double> value, MLMATERIALKIND owner)
    {
        if (value)
        {
            Need(kind == owner, Unwritable::foreignValue, key);
            Append("(", key, " = ", Spell(key, *value), ")\n");
        }
    }

    [[nodiscard]] std::string Spell(std::string_view field, double value) const
    {
        Need(!std::isnan(value), Unwritable::notANumber, field);
        return SpellNumber(value);
    }

    void AddTable(const TableDescription& table)
    {
        const bool isOfMetal = table.kind == MLTABLE_ROUGHNESS_TOP || table.kind == MLTABLE_ROUGHNESS_BOTTOM;
        Need(table.kind >= MLTABLE_ER && table.kind <= MLTABLE_ROUGHNESS_BOTTOM, Unwritable::foreignValue,
             keyword::table);
        const std::string_view key = tableKeys[table.kind];
        Need(isOfMetal == (kind == MLMATERIAL_METAL), Unwritable::foreignValue, key);
        const bool isConstant =
            table.rows.size() == 1 && table.rows.front().frequency == CMaterialTable::singleValueFrequency;
        const bool isAtRoom = table.temperature == CMaterialTable::defaultTemperature;
        Append("(", key);
        if (!isAtRoom || (!isConstant && !isOfMetal)) // measured rows say their temperature
        {
            Append(" ", keyword::temperature, " = ", Spell(key, table.temperature));
        }
        if (isConstant)
        {
            Append(" ", keyword::value, " = ", Spell(key, table.rows.front().value));
        }
        else if (!table.rows.empty())
        {
            AddRows(key, table.rows);
        }
        text += ")\n";
    }

    void AddRows(std::string_view key, const std::vector<MLTBLENTRY>& rows)
    {
        Append(" ", keyword::table, " =\n");
        for (const auto& [frequency, value] : rows)
        {
            Need(!std::isnan(frequency), Unwritable::notANumber, key);
            Append("    ", SpellFrequency(frequency), " ", Spell(key, value), "\n");
        }
    }

    std::string text = std::string("{").append(keyword::matFile).append("}\n{VERSION=1.0}\n");
    MLMATERIALKIND kind = MLMATERIAL_NOT_SET;
    std::size_t index = 0;
};
} // namespace

std::string WriteMaterials(std::span<const MaterialDescription> materials)
{
    CMaterialText text;
    for (const MaterialDescription& each : materials)
    {
        text.Add(each, materials.front().kind);
    }
    return FormatMaterialText(text.Take()); // there is one layout
}
