#pragma once

#include "MaterialLibrary/MLTypes.h"

class IMaterialTable;

// One material of a library: a dielectric or a metal.
//
// Materials belong to their library and live until FreeMaterialLibrary. A returned `const char*` points
// into the material, is never null, is in the system's multibyte code page, and lives as long as the
// material.
//
// GetTable and GetValue add tables and computed values to storage that all materials of a library share,
// so two threads must not use one library at the same time.
//
// The order of the operations is a binary contract: hosts are built with other compilers.
class IMaterial
{
public:
    // The name; empty if the file gives none. Names need not be unique within a library.
    [[nodiscard]] virtual const char* GetName() const = 0;

    // One of MLMATERIALKIND.
    [[nodiscard]] virtual int GetKind() const = 0;

    // The type of laminate or conductor, for example "FR4"; may be empty.
    [[nodiscard]] virtual const char* GetTypeName() const = 0;

    // The manufacturer; may be empty.
    [[nodiscard]] virtual const char* GetVendor() const = 0;

    // Free text; may be empty.
    [[nodiscard]] virtual const char* GetComment() const = 0;

    // Number of tables of `tableKind`; with MLTABLE_ALL (-1), of all tables.
    [[nodiscard]] virtual int CountTables(int tableKind) const = 0;

    // The table of `tableKind` for `temperature` in °C, or null if the material has none.
    //
    // Er and loss tangent: the table nearest to `temperature` among those less than 0.1 °C away. If there
    // is none and the material is a dielectric, the library derives a table from the neighbouring ones,
    // adds it to the material and returns it. Without neighbours that table is empty. It serves later
    // calls like a table of the file.
    // Roughness factors: the last table of that kind, at any temperature.
    //
    // Throws std::bad_alloc when memory is exhausted, and nothing else.
    [[nodiscard]] virtual IMaterialTable* GetTable(int tableKind, double temperature) = 0;

    // The table at `index`, 0 ... CountTables(MLTABLE_ALL) - 1. Null for any other index.
    [[nodiscard]] virtual IMaterialTable* GetTableAt(int index) = 0;

    // Writes the property `tableKind` at `frequency` in Hz and `temperature` in °C to `*value`. The first
    // of these applies:
    //
    // 1. A value computed before for this property, frequency and temperature.
    // 2. The last row of the table at exactly this frequency.
    // 3. Roughness factors: a value computed from the two rows around the frequency.
    // 4. Er and loss tangent with one row each: the constants.
    // 5. Er and loss tangent otherwise: a causal wideband Debye model fitted to the rows of both tables
    //    (Djordjevic, Biljic, Likar-Smiljanic, Sarkar: "Wideband frequency-domain characterization of FR-4
    //    and time-domain causality", IEEE Trans. EMC 43, 2001), or -1.0 if no model can be fitted. A fit
    //    computes both properties at the frequency, and both count as computed from then on.
    //
    // Leaves `*value` as it was if the material has no such table or a table has no rows. Throws
    // std::bad_alloc when memory is exhausted, and nothing else.
    virtual void GetValue(int tableKind, double frequency, double* value, double temperature) = 0;

    // Writes the technology (MLTECHNOLOGY), the only integer attribute, to `*value` and returns true for
    // every `id`.
    virtual bool GetIntAttribute(MLATTRIBID id, int* value) const = 0;

    // Writes the attribute `id` in SI units to `*value` and returns true. If the material has no such
    // attribute, returns false and leaves `*value` as it was.
    virtual bool GetAttribute(MLATTRIBID id, double* value) const = 0;

protected:
    // The last slot. Not for hosts, since the library releases its materials.
    virtual ~IMaterial() = default;
};
