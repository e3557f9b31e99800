#pragma once

#include "MaterialLibrary/MLTypes.h"

class IMaterialTable;

// One material of a library: a dielectric or a metal.
//
// Materials belong to their library and live until FreeMaterialLibrary. Every `const char*` returned
// points into the material, is never null, is encoded in the system's multibyte code page, and lives
// as long as the material.
//
// GetTable and GetValue add tables and computed values, for which all materials of a library share one
// storage, so one library must not be asked from two threads at once.
//
// The order of the operations is a binary contract: hosts are built with other compilers.
class IMaterial
{
public:
    // The name; empty when the file gave none. Names need not be unique within a library.
    [[nodiscard]] virtual const char* GetName() const = 0;

    // One of MLMATERIALKIND.
    [[nodiscard]] virtual int GetKind() const = 0;

    // The type of laminate or conductor, for example "FR4"; may be empty.
    [[nodiscard]] virtual const char* GetTypeName() const = 0;

    // Who makes it; may be empty.
    [[nodiscard]] virtual const char* GetVendor() const = 0;

    // Free text; may be empty.
    [[nodiscard]] virtual const char* GetComment() const = 0;

    // Number of tables of `tableKind`, or of all tables with MLTABLE_ALL (-1).
    [[nodiscard]] virtual int CountTables(int tableKind) const = 0;

    // The table of `tableKind` for `temperature` in °C, or null when the material has none.
    //
    // Er and loss tangent: the table nearest to `temperature` among those less than 0.1 °C away. If
    // there is none and the material is a dielectric, a table for that temperature is derived from the
    // neighbouring ones (it stays empty where there are none), kept with the material and returned.
    // Roughness factors: the last table of that kind; temperature plays no part.
    //
    // Throws std::bad_alloc when memory is exhausted, nothing else.
    [[nodiscard]] virtual IMaterialTable* GetTable(int tableKind, double temperature) = 0;

    // The table at `index`, 0 ... CountTables(MLTABLE_ALL) - 1; null for any other index.
    [[nodiscard]] virtual IMaterialTable* GetTableAt(int index) = 0;

    // The property `tableKind` at `frequency` in Hz and `temperature` in °C, written to `*value`.
    //
    // A row at exactly that frequency answers with its value. Otherwise Er and loss tangent come from
    // a causal wideband Debye model fitted to the rows of both tables (Djordjevic, Biljic,
    // Likar-Smiljanic, Sarkar: "Wideband frequency-domain characterization of FR-4 and time-domain
    // causality", IEEE Trans. EMC 43, 2001); -1.0 is written when no model can be fitted. A constant
    // pair (one row each) answers with its constants. Roughness factors come from the two rows around
    // the frequency.
    //
    // `*value` is left as it was when the material has no such table or the table has no rows. Computed
    // values are kept with the material, so asking again is cheap. Throws std::bad_alloc when memory is
    // exhausted, nothing else.
    virtual void GetValue(int tableKind, double frequency, double* value, double temperature) = 0;

    // Writes the technology (MLTECHNOLOGY), the one integer attribute, to `*value` and returns true,
    // whatever `id` is.
    virtual bool GetIntAttribute(MLATTRIBID id, int* value) const = 0;

    // Writes the attribute `id` in SI units to `*value` and returns true; returns false and leaves
    // `*value` as it was when the material has no such attribute.
    virtual bool GetAttribute(MLATTRIBID id, double* value) const = 0;

protected:
    // The last slot. Not for hosts: the library releases its materials.
    virtual ~IMaterial() = default;
};
