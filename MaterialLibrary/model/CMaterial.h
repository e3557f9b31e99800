#pragma once

#include "MaterialLibrary/IMaterial.h"
#include "model/CCompactArray.h"
#include "model/CCompactText.h"
#include "model/CMaterialTable.h"
#include "model/IMaterialIO.h"
#include "model/MLLEGACYRECORD.h"

#include <memory_resource>

// One material with everything it owns, in storage of one memory resource. In a library that is the
// library's arena, and the destructor never runs; elsewhere the destructor gives everything back.
class CMaterial final : public IMaterial, public IMaterialIO
{
public:
    // An empty material whose kind is not set.
    explicit CMaterial(std::pmr::memory_resource& memoryResource = *std::pmr::get_default_resource()) noexcept
        : resource(&memoryResource)
    {
    }

    // A dielectric with the name, the technology and the present attributes of the record.
    CMaterial(const MLLEGACYRECORD& record, std::pmr::memory_resource& memoryResource);

    ~CMaterial() override;
    CMaterial(const CMaterial&) = delete;
    CMaterial& operator=(const CMaterial&) = delete;

    [[nodiscard]] const char* GetName() const override { return name.Get(); }
    [[nodiscard]] int GetKind() const override { return kind; }
    [[nodiscard]] const char* GetTypeName() const override { return typeName.Get(); }
    [[nodiscard]] const char* GetVendor() const override { return vendor.Get(); }
    [[nodiscard]] const char* GetComment() const override { return comment.Get(); }
    [[nodiscard]] int CountTables(int tableKind) const override;
    [[nodiscard]] IMaterialTable* GetTable(int tableKind, double temperature) override;
    [[nodiscard]] IMaterialTable* GetTableAt(int index) override;
    void GetValue(int tableKind, double frequency, double* value, double temperature) override;
    bool GetIntAttribute(MLATTRIBID id, int* value) const override;
    bool GetAttribute(MLATTRIBID id, double* value) const override;

    [[nodiscard]] IMaterialTableIO* GetTableIO(int index) override;
    void SetKind(int newKind) override { kind = newKind; }
    void SetName(const char* newName) override { name.Set(*resource, newName); }
    void SetTypeName(const char* newTypeName) override { typeName.Set(*resource, newTypeName); }
    void SetVendor(const char* newVendor) override { vendor.Set(*resource, newVendor); }
    void SetComment(const char* newComment) override { comment.Set(*resource, newComment); }
    void SetIntAttribute(MLATTRIBID id, int value) override;
    void SetAttribute(MLATTRIBID id, double value) override;
    IMaterialTableIO* AddTable(int tableKind) override;

    // Whether nothing was set but the kind.
    [[nodiscard]] bool IsBlank() const noexcept;

    // Enters one measurement: Er and loss tangent at `frequency` in Hz and `temperature` in °C, each
    // appended to the material's table for that temperature, which is made when there is none.
    void AddDielectricPoint(double frequency, double permittivity, double lossTangent, double temperature);

private:
    struct Attribute
    {
        MLATTRIBID id;
        double value;
    };

    CMaterialTable& AppendTable(CMaterialTable::Pointer table);
    [[nodiscard]] CMaterialTable* FindTable(int tableKind, double temperature) const;
    [[nodiscard]] CMaterialTable* FindOrDeriveTable(int tableKind, double temperature);
    CMaterialTable& DeriveTable(int tableKind, double temperature);
    CMaterialTable& NeedTable(int tableKind, double temperature);
    [[nodiscard]] double FitDielectricValue(CMaterialTable& permittivityTable, CMaterialTable& lossTable,
                                            int tableKind, double frequency);

    std::pmr::memory_resource* resource;
    CCompactText name;
    CCompactText typeName;
    CCompactText vendor;
    CCompactText comment;
    int kind = MLMATERIAL_NOT_SET;
    int technology = MLTECHNOLOGY_UNKNOWN;
    CCompactArray<CMaterialTable*> tables;
    CCompactArray<Attribute> attributes;
    CCompactArray<MLLEGACYRECORD::NUMBERS> legacyRecord; // one element, or none for all zeros
};
