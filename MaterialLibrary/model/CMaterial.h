#pragma once

#include "MaterialLibrary/IMaterial.h"
#include "model/CCompactArray.h"
#include "model/CCompactText.h"
#include "model/CKeptFit.h"
#include "model/CMaterialTable.h"
#include "model/IMaterialIO.h"
#include "model/MLLEGACYRECORD.h"

// One material of a library. What it owns lies in the library's arena; the fit is kept for all of them.
class CMaterial final : public IMaterial, public IMaterialIO
{
public:
    // An empty material whose kind is not set.
    CMaterial(CArena& materialArena, CKeptFit& libraryFit) noexcept : arena(&materialArena), fit(&libraryFit)
    {
    }

    // A dielectric with the name, the technology and the present attributes of the record.
    CMaterial(const MLLEGACYRECORD& record, CArena& materialArena, CKeptFit& libraryFit);

    ~CMaterial() override = default;
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
    void SetName(const char* newName) override { SetName(ViewOf(newName)); }
    void SetTypeName(const char* newTypeName) override { SetTypeName(ViewOf(newTypeName)); }
    void SetVendor(const char* newVendor) override { SetVendor(ViewOf(newVendor)); }
    void SetComment(const char* newComment) override { SetComment(ViewOf(newComment)); }
    void SetIntAttribute(MLATTRIBID id, int value) override;
    void SetAttribute(MLATTRIBID id, double value) override;
    IMaterialTableIO* AddTable(int tableKind) override { return &MakeTable(tableKind); }

    // The same for callers that know the classes.
    void SetName(std::string_view text) { name.Set(*arena, text); }
    void SetTypeName(std::string_view text) { typeName.Set(*arena, text); }
    void SetVendor(std::string_view text) { vendor.Set(*arena, text); }
    void SetComment(std::string_view text) { comment.Set(*arena, text); }
    CMaterialTable& MakeTable(int tableKind);

    // All tables, those that questions added too, in the order added.
    [[nodiscard]] std::span<CMaterialTable* const> GetTables() const { return tables.GetAll(); }

    // Enters one measurement: Er and loss tangent at `frequency` in Hz and `temperature` in °C, each
    // appended to the material's table for that temperature, which is made when there is none.
    void AddDielectricPoint(double frequency, double permittivity, double lossTangent, double temperature);

private:
    struct Attribute
    {
        MLATTRIBID id;
        double value;
    };

    [[nodiscard]] static std::string_view ViewOf(const char* text) { return text != nullptr ? text : ""; }
    CMaterialTable& AppendTable(CMaterialTable& table);
    [[nodiscard]] CMaterialTable* FindOrDeriveTable(int tableKind, double temperature);
    CMaterialTable& NeedTable(int tableKind, double temperature);
    [[nodiscard]] double FitDielectricValue(CMaterialTable& permittivityTable, CMaterialTable& lossTable,
                                            int tableKind, double frequency);

    CArena* arena;
    CKeptFit* fit;
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
