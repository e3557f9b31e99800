#pragma once

#include "MaterialLibrary/IMaterialTable.h"
#include "model/CTableRows.h"
#include "model/IMaterialTableIO.h"

#include <memory>
#include <memory_resource>
#include <optional>
#include <utility>

// One table of a material, and the values computed for it so far.
class CMaterialTable final : public IMaterialTable, public IMaterialTableIO
{
public:
    static constexpr double defaultTemperature = 25.0;    // °C
    static constexpr double singleValueFrequency = 1.0e9; // Hz

    struct Deleter
    {
        void operator()(CMaterialTable* table) const noexcept;
    };
    using Pointer = std::unique_ptr<CMaterialTable, Deleter>;

    // A table without rows at 25 °C, in storage of `resource`.
    [[nodiscard]] static Pointer Create(std::pmr::memory_resource& resource, int kind);

    CMaterialTable(const CMaterialTable&) = delete;
    CMaterialTable& operator=(const CMaterialTable&) = delete;

    [[nodiscard]] int GetTableKind() const override { return kind; }
    [[nodiscard]] double GetTemperature() const override { return temperature; }
    [[nodiscard]] int GetEntryCount() const override { return entries.GetCount(); }
    [[nodiscard]] const MLTBLENTRY& GetEntry(int index) const override;

    void SetTemperature(double newTemperature) override { temperature = newTemperature; }
    [[nodiscard]] bool HasSeveralEntries() const override { return entries.GetCount() > 1; }
    void AddEntry(const MLTBLENTRY& entry) override { entries.Append(*resource, entry); }
    void SetSingleValue(double value) override;
    [[nodiscard]] MLTBLENTRY GetEntry(int index) override { return std::as_const(*this).GetEntry(index); }
    [[nodiscard]] double GetFirstValue() const override { return GetEntry(0).value; }

    // All rows, in the order added.
    [[nodiscard]] std::span<const MLTBLENTRY> GetEntries() const noexcept { return entries.GetAll(); }

    // Appends all rows of the other table.
    void AddEntriesOf(const CMaterialTable& other);

    // Keeps a computed value for FindCachedValue.
    void AddCachedValue(double frequency, double value);

    // The value computed last for exactly this frequency.
    [[nodiscard]] std::optional<double> FindCachedValue(double frequency) const noexcept;

    // The value of the last row at exactly this frequency.
    [[nodiscard]] std::optional<double> FindEntryValue(double frequency) const noexcept;

private:
    CMaterialTable(std::pmr::memory_resource& tableResource, int tableKind) noexcept
        : resource(&tableResource), kind(tableKind)
    {
    }
    ~CMaterialTable();

    std::pmr::memory_resource* resource;
    double temperature = defaultTemperature;
    CCompactArray<MLTBLENTRY>* cache = nullptr; // most tables are never asked between their rows
    [[no_unique_address]] CTableRows entries;   // the kind fits into what it leaves of its last word
    int kind;
};
