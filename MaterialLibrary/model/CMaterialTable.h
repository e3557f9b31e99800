#pragma once

#include "MaterialLibrary/IMaterialTable.h"
#include "model/CCompactArray.h"
#include "model/CValueCache.h"
#include "model/IMaterialTableIO.h"

#include <utility>

// One table of a material, and the values computed for it so far.
class CMaterialTable final : public IMaterialTable, public IMaterialTableIO
{
public:
    static constexpr double defaultTemperature = 25.0;    // °C
    static constexpr double singleValueFrequency = 1.0e9; // Hz

    // A table without rows at 25 °C. What it owns lies in the arena.
    CMaterialTable(CArena& tableArena, int tableKind) noexcept : arena(&tableArena), kind(tableKind) {}
    ~CMaterialTable() = default;
    CMaterialTable(const CMaterialTable&) = delete;
    CMaterialTable& operator=(const CMaterialTable&) = delete;

    [[nodiscard]] int GetTableKind() const override { return kind; }
    [[nodiscard]] double GetTemperature() const override { return temperature; }
    [[nodiscard]] int GetEntryCount() const override { return entries.GetCount(); }
    [[nodiscard]] const MLTBLENTRY& GetEntry(int index) const override;

    void SetTemperature(double newTemperature) override { temperature = newTemperature; }
    [[nodiscard]] bool HasSeveralEntries() const override { return entries.GetCount() > 1; }
    void AddEntry(const MLTBLENTRY& entry) override { entries.Append(*arena, entry); }
    void SetSingleValue(double value) override;
    [[nodiscard]] MLTBLENTRY GetEntry(int index) override { return std::as_const(*this).GetEntry(index); }
    [[nodiscard]] double GetFirstValue() const override { return GetEntry(0).value; }

    // All rows, in the order added.
    [[nodiscard]] std::span<const MLTBLENTRY> GetEntries() const noexcept { return entries.GetAll(); }

    // Appends the rows, which are none of this table's own.
    void AddEntries(std::span<const MLTBLENTRY> rows);

    // Keeps a computed value for FindCachedValue.
    void AddCachedValue(double frequency, double value) { cache.Keep(*arena, frequency, value); }

    // The value computed last for exactly this frequency.
    [[nodiscard]] std::optional<double> FindCachedValue(double frequency) const noexcept
    {
        return cache.Find(frequency);
    }

private:
    CArena* arena;
    double temperature = defaultTemperature;
    CValueCache cache;
    CCompactArray<MLTBLENTRY> entries;
    int kind;
};
