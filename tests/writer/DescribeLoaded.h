#pragma once

#include "model/CFakeMaterialLib.h"
#include "model/CMaterial.h"
#include "reader/LoadMaterialFile.h"
#include "writer/DescribeMaterial.h"

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
        described.push_back(DescribeMaterial(static_cast<const CMaterial&>(*each)));
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
