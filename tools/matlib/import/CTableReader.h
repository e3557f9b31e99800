#pragma once

#include "tools/matlib/import/ImportTables.h"

#include <optional>
#include <set>
#include <string>
#include <vector>

// Reads the rows of one table into a collector.
class CTableReader
{
public:
    // `name` is that of the material where no column gives one.
    CTableReader(std::size_t tableIndex, UnderstoodTable& understood, const ImportOptions& importOptions,
                 std::string fileName, CMaterialCollector& materialCollector);

    // The head row and those below it.
    void Read(const std::vector<CsvRow>& rows);

    [[nodiscard]] const std::vector<TableFinding>& GetErrors() const { return errors; }
    [[nodiscard]] const std::vector<TableFinding>& GetRemarks() const { return remarks; }

private:
    // What holds for all values of a row.
    struct RowContext
    {
        std::size_t material = 0;
        std::optional<double> temperature;
        std::optional<double> frequency;
        bool isGood = true;
        bool hasValue = false;
    };

    void RemarkDefaults(const CsvCell& firstHead);
    void ReadRow(const CsvRow& row, std::size_t headCount);
    [[nodiscard]] RowContext ReadContext(const CsvRow& row);
    void ReadFact(RowContext& context, std::size_t column, const CsvCell& cell);
    void ReadTechnology(RowContext& context, const CsvCell& cell);
    void CheckCompleteness(const RowContext& context, const CsvRow& row);
    [[nodiscard]] bool HasShape(const CsvRow& row, std::size_t headCount);
    [[nodiscard]] std::optional<std::size_t> FindColumn(Property property) const;
    [[nodiscard]] bool IsEmpty(const CsvCell& cell) const;
    [[nodiscard]] std::optional<double> ReadNumber(std::size_t column, const CsvCell& cell);
    [[nodiscard]] bool HasUnit(std::size_t column, const CsvCell& cell, const CellNumber& number);
    [[nodiscard]] std::optional<std::string> ReadText(const CsvCell& cell);
    void Refuse(Span where, std::string text);
    void Remark(Span where, std::string text);

    std::size_t index;
    UnderstoodTable& table;
    const ImportOptions& options;
    std::string defaultName;
    CMaterialCollector& collector;
    std::vector<TableFinding> errors;
    std::vector<TableFinding> remarks;
    std::vector<bool> hasHead;
    std::set<std::size_t> columnsWithoutUnit;
    std::set<std::size_t> columnsWithUnits;
    bool hasJoinedLines = false;
};
