#pragma once

#include "MaterialLibrary/MLTypes.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

// What the columns of a table can be.

enum class Property
{
    frequency,
    er,
    lossTangent,
    temperature,
    thickness,
    resistivity,
    roughTop,
    roughBottom,
    name,
    type,
    technology,
    vendor,
    comment
};

enum class Dimension
{
    text,
    frequency,
    temperature,
    length,
    resistivity,
    ratio, // perhaps in per cent
    number
};

struct CellUnit
{
    std::string_view name; // as a message shows it
    unsigned factor;       // one of it is factor * 10^exponent of the file's unit
    int exponent;
};

struct PropertyTraits
{
    Property property;
    std::string_view word;  // for --map
    std::string_view taken; // what a message says the column is
    Dimension dimension;
    std::optional<MLTABLEKIND> table;   // of those that depend on frequency
    std::optional<MLMATERIALKIND> kind; // of those that only one kind of material has
};

[[nodiscard]] const PropertyTraits& TraitsOf(Property property);

// The property that people write like this at the head of a column, whatever the letter case, blanks,
// underscores, dashes and points; null for none.
[[nodiscard]] const PropertyTraits* FindProperty(std::string_view head);

// Words that people write there, for suggestions.
[[nodiscard]] std::vector<std::string> ListHeads();

// The words for --map, with commas.
[[nodiscard]] std::string ListPropertyWords();

// A head as FindProperty compares it.
[[nodiscard]] std::string NormaliseHead(std::string_view head);

// Null where the text is no unit of that dimension. The letter case counts.
[[nodiscard]] const CellUnit* FindUnit(Dimension dimension, std::string_view text);

// The unit that differs from the text in its letter case only; null for none.
[[nodiscard]] const CellUnit* FindUnitInAnyCase(Dimension dimension, std::string_view text);

// Whether a number needs a unit to mean something.
[[nodiscard]] bool NeedsUnit(Dimension dimension);

// The units of the dimension, each once.
[[nodiscard]] std::vector<std::string_view> FindUnitNames(Dimension dimension);

// What units there are, as a sentence says it: "Hz, kHz, MHz, GHz or THz"; empty where there are none.
[[nodiscard]] std::string ListUnits(Dimension dimension);
