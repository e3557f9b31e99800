#pragma once

#include "MaterialLibrary/MLTypes.h"

class IMaterialTableIO;

// Builds a material: what the file reader and the sample library see of it. The reading operations are
// those of IMaterial. The order of the operations is fixed.
class IMaterialIO
{
public:
    [[nodiscard]] virtual const char* GetName() const = 0;
    [[nodiscard]] virtual int GetKind() const = 0;
    [[nodiscard]] virtual const char* GetTypeName() const = 0;
    [[nodiscard]] virtual const char* GetVendor() const = 0;
    [[nodiscard]] virtual const char* GetComment() const = 0;
    [[nodiscard]] virtual int CountTables(int tableKind) const = 0;

    // The table at `index` for filling; null unless `index` is 0 ... CountTables(MLTABLE_ALL) - 1.
    [[nodiscard]] virtual IMaterialTableIO* GetTableIO(int index) = 0;

    virtual bool GetIntAttribute(MLATTRIBID id, int* value) const = 0;
    virtual bool GetAttribute(MLATTRIBID id, double* value) const = 0;

    virtual void SetKind(int kind) = 0;

    // The setters copy the text.
    virtual void SetName(const char* name) = 0;
    virtual void SetTypeName(const char* typeName) = 0;
    virtual void SetVendor(const char* vendor) = 0;
    virtual void SetComment(const char* comment) = 0;

    // Sets the technology, the one integer attribute, whatever `id` is.
    virtual void SetIntAttribute(MLATTRIBID id, int value) = 0;

    // Sets the attribute `id`, in SI units.
    virtual void SetAttribute(MLATTRIBID id, double value) = 0;

    // Adds a table of that kind at 25 °C without rows. It belongs to the material.
    virtual IMaterialTableIO* AddTable(int tableKind) = 0;

protected:
    ~IMaterialIO() = default;
};
