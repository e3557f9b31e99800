#include "tools/matlib/MaterialFacts.h"

#include <algorithm>

std::optional<double> FindAttribute(const IMaterial& material, MLATTRIBID id)
{
    double value = 0.0;
    return material.GetAttribute(id, &value) ? std::optional(value) : std::nullopt;
}

std::vector<const IMaterialTable*> ListTables(IMaterial& material)
{
    std::vector<const IMaterialTable*> tables;
    const int count = material.CountTables(MLTABLE_ALL);
    tables.reserve(static_cast<std::size_t>(count));
    for (int index = 0; index < count; ++index)
    {
        tables.push_back(material.GetTableAt(index));
    }
    return tables;
}

std::vector<double> ListTemperatures(IMaterial& material)
{
    std::vector<double> temperatures;
    for (const IMaterialTable* table : ListTables(material))
    {
        const double temperature = table->GetTemperature();
        if (std::ranges::find(temperatures, temperature) == temperatures.end())
        {
            temperatures.push_back(temperature);
        }
    }
    std::ranges::sort(temperatures);
    return temperatures;
}
