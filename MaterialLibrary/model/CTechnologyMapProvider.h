#pragma once

#include "MaterialLibrary/MLTypes.h"
#include "model/ITechnologyMapProvider.h"

#include <array>

// The map over a fixed table, whose words come from the module's string table when the map is made. It can be
// asked by several threads at a time.
class CTechnologyMapProvider final : public ITechnologyMapProvider
{
public:
    CTechnologyMapProvider();
    [[nodiscard]] std::string GetTechnologyName(int identifier) override;
    [[nodiscard]] int GetTechnologyId(const char* word) override;

private:
    struct Row
    {
        int identifier;
        std::string word;
    };

    std::array<Row, 3> rows;
};
