#pragma once

#include "MaterialLibrary/MLTypes.h"

// Fills a table: what the file reader and the sample library see of it. The order of the operations is
// fixed.
class IMaterialTableIO
{
public:
    [[nodiscard]] virtual int GetTableKind() const = 0;
    [[nodiscard]] virtual double GetTemperature() const = 0;
    [[nodiscard]] virtual int GetEntryCount() const = 0;

    // Sets the temperature in °C.
    virtual void SetTemperature(double temperature) = 0;

    [[nodiscard]] virtual bool HasSeveralEntries() const = 0;

    // Appends a copy of the row. Rows stay in the order added; nothing is sorted or merged.
    virtual void AddEntry(const MLTBLENTRY& entry) = 0;

    // Replaces all rows by one, (1 GHz, value): a property that does not depend on frequency.
    virtual void SetSingleValue(double value) = 0;

    // A copy of the row. Throws std::invalid_argument unless `index` is 0 ... GetEntryCount() - 1.
    [[nodiscard]] virtual MLTBLENTRY GetEntry(int index) = 0;

    // The value of the first row. Throws std::invalid_argument when the table is empty.
    [[nodiscard]] virtual double GetFirstValue() const = 0;

protected:
    ~IMaterialTableIO() = default;
};
