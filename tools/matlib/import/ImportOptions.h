#pragma once

#include "tools/matlib/import/ImportedProperty.h"

#include <optional>
#include <string>
#include <vector>

enum class DecimalSign
{
    point,
    comma
};

// What a user says beyond what stands in the tables. Heads are compared as NormaliseHead has them.
struct MappedHead
{
    std::string head;
    Property property = Property::name;
    std::optional<double> frequency; // Hz, at which the column's values were measured
};
struct StatedUnit
{
    std::string head;
    std::string unit;
};
struct ImportOptions
{
    std::optional<char> separator;
    DecimalSign decimalSign = DecimalSign::point;
    std::vector<MappedHead> maps;
    std::vector<StatedUnit> units;
    std::vector<std::string> ignoredHeads;
    std::vector<std::string> emptyMarks; // cells that say that there is no value
};
