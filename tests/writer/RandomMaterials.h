#pragma once

#include "writer/MaterialDescription.h"

#include <bit>
#include <cmath>
#include <limits>
#include <random>

// Materials as nobody would write them: every kind of number and of byte that a file can hold.
class CRandomMaterials
{
public:
    [[nodiscard]] std::vector<MaterialDescription> Make()
    {
        const MLMATERIALKIND kind = Choose(2) == 0 ? MLMATERIAL_DIELECTRIC : MLMATERIAL_METAL;
        std::vector<MaterialDescription> materials(Choose(4));
        for (MaterialDescription& each : materials)
        {
            each.kind = kind;
            for (std::string* const text : {&each.name, &each.type, &each.vendor, &each.comment})
            {
                *text = MakeText("\"\0", 20);
            }
            each.remarks.assign(Choose(3), MakeText("\r\n\0", 9));
            if (kind == MLMATERIAL_DIELECTRIC)
            {
                each.technology = static_cast<MLTECHNOLOGY>(static_cast<int>(Choose(4)) - 1);
                each.thickness = Choose(2) == 0 ? std::optional<double>() : MakeNumber();
            }
            else
            {
                each.resistivity = MakeNumber();
            }
            each.tables.resize(Choose(4));
            for (TableDescription& table : each.tables)
            {
                table.kind = static_cast<MLTABLEKIND>(Choose(2) + (kind == MLMATERIAL_METAL ? 2 : 0));
                table.temperature = Choose(2) == 0 ? 25.0 : MakeNumber();
                table.rows.resize(Choose(5));
                for (MLTBLENTRY& row : table.rows)
                {
                    row = {Choose(4) == 0 ? 1e9 : MakeNumber(), MakeNumber()};
                }
            }
        }
        return materials;
    }

    [[nodiscard]] std::size_t Choose(std::size_t count) { return source() % count; }

    [[nodiscard]] double MakeNumber()
    {
        constexpr double edges[] = {0.0,
                                    -0.0,
                                    1e9,
                                    2.45e9,
                                    0.3,
                                    1e22,
                                    5e-324,
                                    std::numeric_limits<double>::infinity(),
                                    -std::numeric_limits<double>::infinity(),
                                    std::numeric_limits<double>::max()};
        const double bits = std::bit_cast<double>(source());
        switch (Choose(4))
        {
        case 0:
            return edges[Choose(std::size(edges))];
        case 1:
            return static_cast<double>(Choose(100000)) *
                   std::pow(10.0, static_cast<double>(Choose(12)) - 4.0);
        default:
            return std::isnan(bits) ? 1.0 : bits;
        }
    }

    [[nodiscard]] std::string MakeText(std::string_view without, std::size_t limit)
    {
        std::string text(Choose(limit), ' ');
        for (char& each : text)
        {
            do
            {
                each = Choose(2) == 0 ? "*(){}=\r\n\t .\"#"[Choose(13)] : static_cast<char>(Choose(256));
            } while (each == '\0' || without.find(each) != std::string_view::npos);
        }
        return text;
    }

private:
    std::mt19937_64 source{20261122};
};
