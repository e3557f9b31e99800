#pragma once

#include "MaterialLibrary/MLTypes.h"
#include "model/ITechnologyMapProvider.h"
#include "resources/TextIds.h"

#include <array>

// The map over a fixed table; its words come from the module's string table, loaded once.
class CTechnologyMapProvider final : public ITechnologyMapProvider
{
public:
    [[nodiscard]] std::string GetTechnologyName(int identifier) override;
    [[nodiscard]] int GetTechnologyId(const char* word) override;

private:
    struct Row
    {
        int identifier;
        MLTEXTID textId;
        std::string word;
    };

    [[nodiscard]] const std::array<Row, 3>& GetRows();

    bool loaded = false;
    std::array<Row, 3> rows = {{{MLTECHNOLOGY_CORE, MLTEXT_CORE, {}},
                                {MLTECHNOLOGY_PREPREG, MLTEXT_PREPREG, {}},
                                {MLTECHNOLOGY_FLEXCORE, MLTEXT_FLEXCORE, {}}}};
};
