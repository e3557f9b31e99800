#pragma once

#include "MaterialLibrary/MLTypes.h"

// One property of a material at one temperature: rows of frequency and value in the order of the file.
// They are not sorted, and a frequency may occur more than once.
//
// A table with one row holds a property that does not depend on frequency. A table may be empty. Tables
// belong to their material and live as long as it does. A host cannot release them.
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

    // The row at `index`, 0 ... GetEntryCount() - 1. The reference stays valid as long as the table lives.
    // Any other index throws std::invalid_argument, which a host built with another compiler cannot
    // catch.
    [[nodiscard]] virtual const MLTBLENTRY& GetEntry(int index) const = 0;

protected:
    ~IMaterialTable() = default;
};
