#pragma once

#include "model/CFakeMaterialLib.h"
#include "model/CMaterial.h"
#include "reader/LoadMaterialFile.h"
#include "writer/MaterialDescription.h"

#include <cstring>
#include <gtest/gtest.h>

// What the library loads from the text; without the remarks, which it passes over.
inline std::vector<MaterialDescription> DescribeLoaded(const std::string& text)
{
    CFakeMaterialLib library;
    const auto failure = ReadMaterials(library, PadText(text).c_str());
    EXPECT_FALSE(failure.has_value())
        << failure->line << ":" << failure->column << " " << failure->reason << "\n"
        << text;
    std::vector<MaterialDescription> described;
    for (IMaterial* const each : library.GetMaterials())
    {
        const auto& from = static_cast<const CMaterial&>(*each);
        MaterialDescription& to = described.emplace_back();
        to = {static_cast<MLMATERIALKIND>(from.GetKind()),
              from.GetName(),
              from.GetTypeName(),
              from.GetVendor(),
              from.GetComment(),
              MLTECHNOLOGY_UNKNOWN,
              {},
              {},
              {},
              {}};
        int technology = MLTECHNOLOGY_UNKNOWN;
        from.GetIntAttribute(MLATTR_TECHNOLOGY, &technology);
        to.technology = static_cast<MLTECHNOLOGY>(technology);
        double value = 0.0;
        to.thickness = from.GetAttribute(MLATTR_THICKNESS, &value) ? std::optional(value) : std::nullopt;
        to.resistivity =
            from.GetAttribute(MLATTR_BULK_RESISTIVITY, &value) ? std::optional(value) : std::nullopt;
        for (const CMaterialTable* const table : from.GetTables())
        {
            const auto rows = table->GetEntries();
            to.tables.push_back({static_cast<MLTABLEKIND>(table->GetTableKind()),
                                 table->GetTemperature(),
                                 {rows.begin(), rows.end()}});
        }
    }
    return described;
}

inline bool AreSame(double a, double b)
{
    return std::memcmp(&a, &b, sizeof a) == 0; // 0 is not -0
}

// Whether both lists are the same, bit for bit, but for the remarks.
inline bool AreSame(const std::vector<MaterialDescription>& some,
                    const std::vector<MaterialDescription>& others)
{
    const auto same = [](const auto& a, const auto& b)
    { return a.has_value() == b.has_value() && (!a.has_value() || AreSame(*a, *b)); };
    const auto sameRow = [](const MLTBLENTRY& a, const MLTBLENTRY& b)
    { return AreSame(a.frequency, b.frequency) && AreSame(a.value, b.value); };
    const auto sameTable = [&](const TableDescription& a, const TableDescription& b)
    {
        return a.kind == b.kind && AreSame(a.temperature, b.temperature) &&
               std::ranges::equal(a.rows, b.rows, sameRow);
    };
    return std::ranges::equal(some, others,
                              [&](const MaterialDescription& a, const MaterialDescription& b)
                              {
                                  return a.kind == b.kind && a.name == b.name && a.type == b.type &&
                                         a.vendor == b.vendor && a.comment == b.comment &&
                                         a.technology == b.technology && same(a.thickness, b.thickness) &&
                                         same(a.resistivity, b.resistivity) &&
                                         std::ranges::equal(a.tables, b.tables, sameTable);
                              });
}
