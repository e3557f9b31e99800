#include "model/CTechnologyMapProvider.h"

#include "resources/Texts.h"

#include <algorithm>

const std::array<CTechnologyMapProvider::Row, 3>& CTechnologyMapProvider::GetRows()
{
    if (!loaded)
    {
        for (Row& row : rows)
        {
            row.word = LoadText(row.textId);
        }
        loaded = true;
    }
    return rows;
}

std::string CTechnologyMapProvider::GetTechnologyName(int identifier)
{
    const auto& all = GetRows();
    const auto row = std::find_if(all.rbegin(), all.rend(),
                                  [identifier](const Row& each) { return each.identifier == identifier; });
    return row != all.rend() ? row->word : std::string();
}

int CTechnologyMapProvider::GetTechnologyId(const char* word)
{
    const auto& all = GetRows();
    const auto row =
        std::find_if(all.rbegin(), all.rend(), [word](const Row& each) { return each.word == word; });
    return row != all.rend() ? row->identifier : MLTECHNOLOGY_UNKNOWN;
}

ITechnologyMapProvider& GetTechnologyMap()
{
    static CTechnologyMapProvider map;
    return map;
}
