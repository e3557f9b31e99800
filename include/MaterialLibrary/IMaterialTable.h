#pragma once

#include "MaterialLibrary/MLTypes.h"

// One property of a material at one temperature: rows of (frequency, value) in the order of the
// material's file, unsorted, the same frequency possibly several times.
//
// A table with one row holds a property that does not depend on frequency; a table without rows
// holds nothing. Tables belong to their material and live as long as it does; they cannot be
// released by a host.
//
// The order of the operations is a binary contract: hosts are built with other compilers.
class IMaterialTable
{
public:
    // Which property: one of MLTABLEKIND.
    [[nodiscard]] virtual int GetTableKind() const = 0;

    // The temperature in °C at which the rows were measured.
    [[nodiscard]] virtual double GetTemperature() const = 0;

    // Number of rows, 0 or more.
    [[nodiscard]] virtual int GetEntryCount() const = 0;

    // The row at `index`, 0 ... GetEntryCount() - 1. The reference stays valid as long as the table.
    // Any other index throws std::invalid_argument. A host built with another compiler cannot catch
    // that exception and must stay in range.
    [[nodiscard]] virtual const MLTBLENTRY& GetEntry(int index) const = 0;

protected:
    ~IMaterialTable() = default;
};
