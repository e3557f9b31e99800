#pragma once

#include "tools/matlib/import/ColumnHeads.h"
#include "writer/MaterialDescription.h"

#include <map>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

// Where a value stands: in one of the tables.
struct CellPlace
{
    std::size_t table = 0;
    Span where;
};

// A value of a row that depends on frequency.
struct CollectedValue
{
    MLTABLEKIND kind;
    std::optional<double> temperature; // °C
    std::optional<double> frequency;   // Hz; none: the same at every frequency
    double value;
    CellPlace place;
};

// A finding about a cell of one of the tables.
struct TableFinding
{
    std::size_t table = 0;
    Finding finding;
};

// Puts rows together that belong to one material, in the order in which the materials come.
class CMaterialCollector
{
public:
    // The material of that name, which is new or has been there before.
    [[nodiscard]] std::size_t FindMaterial(const std::string& name);

    // The material's own facts. False when it has another one already.
    [[nodiscard]] bool SetText(std::size_t material, Property property, const std::string& text);
    [[nodiscard]] bool SetTechnology(std::size_t material, MLTECHNOLOGY technology);
    [[nodiscard]] bool SetNumber(std::size_t material, Property property, double number);

    void Add(std::size_t material, const CollectedValue& value);

    // All of them, their rows in ascending order of frequency, with remarks that say what they rest on.
    // `paths` are those of the tables. Frequencies that stand twice are errors, rows that had to be sorted
    // are remarks.
    [[nodiscard]] std::vector<MaterialDescription> Finish(MLMATERIALKIND kind,
                                                          const std::vector<std::string>& paths,
                                                          const std::vector<CSourceLines>& lines);

    [[nodiscard]] const std::vector<TableFinding>& GetErrors() const { return errors; }
    [[nodiscard]] const std::vector<TableFinding>& GetRemarks() const { return remarks; }

private:
    struct Material
    {
        MaterialDescription description;
        std::vector<CollectedValue> values;
    };

    std::vector<Material> materials;
    std::unordered_map<std::string, std::size_t> indices;
    std::vector<TableFinding> errors;
    std::vector<TableFinding> remarks;
};
