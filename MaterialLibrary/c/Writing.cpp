// Making materials and writing them.
#include "c/Handles.h"
#include "model/CMaterial.h"
#include "writer/DescribeMaterial.h"
#include "writer/WriteMaterials.h"
#include "writer/WriteWholeFile.h"

#include <memory>
#include <span>
#include <vector>

struct ml_builder
{
    std::vector<MaterialDescription> materials;
};

namespace
{
class CReason
{
public:
    CReason(char* reasonText, std::size_t textCapacity) : text(reasonText), capacity(textCapacity) {}

    [[nodiscard]] bool IsFine() const { return text != nullptr || capacity == 0; }

    void Set(const std::string& reason) const
    {
        if (capacity > 0)
        {
            text[reason.copy(text, capacity - 1)] = '\0';
        }
    }

private:
    char* text;
    std::size_t capacity;
};

// Runs what writes materials; why it cannot becomes the error and the reason.
template <class Action>
[[nodiscard]] ml_error GuardWriting(const CReason& reason, Action action) noexcept
{
    return Guard(
        [&]() -> ml_error
        {
            try
            {
                return action();
            }
            catch (const CUnwritableError& error)
            {
                reason.Set("Material " + std::to_string(error.GetMaterial()) + ": " + error.GetText() + ".");
                return ML_ERROR_UNWRITABLE;
            }
            catch (const CWriteError& error)
            {
                reason.Set(error.GetReason());
                return error.GetKind() == CWriteError::Kind::exists ? ML_ERROR_EXISTS : ML_ERROR_WRITE;
            }
        });
}

std::string TakeText(const char* text)
{
    return text != nullptr ? text : "";
}

MaterialDescription Describe(const ml_material_info& info)
{
    MaterialDescription material;
    material.kind = static_cast<MLMATERIALKIND>(info.kind);
    material.name = TakeText(info.name);
    material.type = TakeText(info.type);
    material.vendor = TakeText(info.vendor);
    material.comment = TakeText(info.comment);
    if (info.kind != ML_METAL)
    {
        material.technology = static_cast<MLTECHNOLOGY>(info.technology);
    }
    if (info.has_thickness != 0)
    {
        material.thickness = info.thickness;
    }
    if (info.has_resistivity != 0)
    {
        material.resistivity = info.resistivity;
    }
    return material;
}
} // namespace

ml_error ml_make_builder(ml_builder** builder)
{
    if (builder == nullptr)
    {
        return ML_ERROR_ARGUMENT;
    }
    return Guard(
        [=]
        {
            *builder = std::make_unique<ml_builder>().release();
            return ML_OK;
        });
}

void ml_free_builder(ml_builder* builder)
{
    delete builder;
}

ml_error ml_add_material(ml_builder* builder, const ml_material_info* info)
{
    if (builder == nullptr || info == nullptr || info->struct_size < sizeof *info ||
        (info->kind != ML_DIELECTRIC && info->kind != ML_METAL) ||
        (info->kind == ML_DIELECTRIC &&
         (info->technology < ML_TECHNOLOGY_UNKNOWN || info->technology > ML_FLEXCORE)))
    {
        return ML_ERROR_ARGUMENT;
    }
    return Guard(
        [=]
        {
            builder->materials.push_back(Describe(*info));
            return ML_OK;
        });
}

ml_error ml_add_table(ml_builder* builder, const ml_table* table)
{
    if (builder == nullptr || builder->materials.empty() || table == nullptr ||
        table->struct_size < sizeof *table || table->property < ML_ER ||
        table->property > ML_ROUGHNESS_BOTTOM || (table->rows == nullptr && table->row_count > 0))
    {
        return ML_ERROR_ARGUMENT;
    }
    return Guard(
        [=]
        {
            TableDescription description{static_cast<MLTABLEKIND>(table->property), table->temperature, {}};
            for (const ml_row& row : std::span(table->rows, table->row_count))
            {
                description.rows.push_back({row.frequency, row.value});
            }
            builder->materials.back().tables.push_back(std::move(description));
            return ML_OK;
        });
}

ml_error ml_build(const ml_builder* builder, ml_library** library, char* reason, size_t capacity)
{
    const CReason told(reason, capacity);
    if (builder == nullptr || library == nullptr || !told.IsFine())
    {
        return ML_ERROR_ARGUMENT;
    }
    return GuardWriting(told,
                        [=]
                        {
                            const std::string text = WriteMaterials(builder->materials);
                            return ml_open_text(text.data(), text.size(), "", ML_OPEN_DEFAULT, library);
                        });
}

ml_error ml_write_file(const char* path, const ml_material* const* materials, size_t count, uint32_t flags,
                       char* reason, size_t capacity)
{
    const CReason told(reason, capacity);
    if (path == nullptr || flags > ML_WRITE_REPLACE || (materials == nullptr && count > 0) ||
        std::find(materials, materials + count, nullptr) != materials + count || !told.IsFine())
    {
        return ML_ERROR_ARGUMENT;
    }
    return GuardWriting(told,
                        [=]() -> ml_error
                        {
                            std::vector<MaterialDescription> described;
                            described.reserve(count);
                            for (const ml_material* const each : std::span(materials, count))
                            {
                                described.push_back(DescribeMaterial(FromHandle(each)));
                            }
                            WriteWholeFile(path, WriteMaterials(described),
                                           flags == ML_WRITE_REPLACE ? ExistingFile::replace
                                                                     : ExistingFile::keep);
                            return ML_OK;
                        });
}
