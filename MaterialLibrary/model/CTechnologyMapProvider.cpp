#include "model/CTechnologyMapProvider.h"

#include "resources/CompiledTexts.h"
#include "resources/TextIds.h"

#include <algorithm>

// The words of files, which are the same in every program.
CTechnologyMapProvider::CTechnologyMapProvider()
    : rows{{{MLTECHNOLOGY_CORE, std::string(GetCompiledText(MLTEXT_CORE))},
            {MLTECHNOLOGY_PREPREG, std::string(GetCompiledText(MLTEXT_PREPREG))},
            {MLTECHNOLOGY_FLEXCORE, std::string(GetCompiledText(MLTEXT_FLEXCORE))}}}
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
