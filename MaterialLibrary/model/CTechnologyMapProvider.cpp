#include "model/CTechnologyMapProvider.h"

#include "resources/Texts.h"

#include <algorithm>

CTechnologyMapProvider::CTechnologyMapProvider()
    : rows{{{MLTECHNOLOGY_CORE, LoadText(MLTEXT_CORE)},
            {MLTECHNOLOGY_PREPREG, LoadText(MLTEXT_PREPREG)},
            {MLTECHNOLOGY_FLEXCORE, LoadText(MLTEXT_FLEXCORE)}}}
{
}

std::string CTechnologyMapProvider::GetTechnologyName(int identifier)
{
    const auto row = std::find_if(rows.rbegin(), rows.rend(),
                                  [identifier](const Row& each) { return each.identifier == identifier; });
    return row != rows.rend() ? row->word : std::string();
}

int CTechnologyMapProvider::GetTechnologyId(const char* word)
{
    const auto row =
        std::find_if(rows.rbegin(), rows.rend(), [word](const Row& each) { return each.word == word; });
    return row != rows.rend() ? row->identifier : MLTECHNOLOGY_UNKNOWN;
}

ITechnologyMapProvider& GetTechnologyMap()
{
    static CTechnologyMapProvider map;
    return map;
}
