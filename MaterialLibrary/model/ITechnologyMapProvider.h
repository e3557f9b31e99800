#pragma once

#include <string>

// Converts between the technology identifiers of dielectrics (MLTECHNOLOGY) and the words that stand for
// them in files and on the screen.
class ITechnologyMapProvider
{
public:
    // The word for the identifier; empty when it has none.
    [[nodiscard]] virtual std::string GetTechnologyName(int identifier) = 0;

    // The identifier of the word, compared byte by byte; MLTECHNOLOGY_UNKNOWN for any other word.
    [[nodiscard]] virtual int GetTechnologyId(const char* word) = 0;

protected:
    ~ITechnologyMapProvider() = default;
};

// The module's one map; lives as long as the module.
[[nodiscard]] ITechnologyMapProvider& GetTechnologyMap();
