// Opening, listing and finding.
#include "MaterialLibrary/Version.h"
#include "c/Handles.h"
#include "c/OpenUtf8.h"
#include "model/CFakeMaterialLib.h"
#include "model/CMaterial.h"
#include "reader/LoadMaterialFile.h"
#include "reader/ReadError.h"

#include <cmath>
#include <limits>
#include <string>
#include <vector>

struct ml_library
{
    struct Diagnostic
    {
        std::string file;
        ReadFailure failure;
    };

    std::vector<std::unique_ptr<CFakeMaterialLib>> files; // those that were good
    std::vector<IMaterial*> materials;                    // of all of them
    CNameIndex names;
    std::vector<Diagnostic> diagnostics;
};

static_assert(sizeof(ml_row) == sizeof(MLTBLENTRY) && offsetof(ml_row, value) == offsetof(MLTBLENTRY, value));

namespace
{
constexpr double notGiven = std::numeric_limits<double>::quiet_NaN();
constexpr double unbounded = std::numeric_limits<double>::infinity();

class CLibraryMaker
{
public:
    explicit CLibraryMaker(std::uint32_t openFlags) : flags(openFlags) {}

    void AddFile(const char* path)
    {
        std::unique_ptr<char[]> text;
        try
        {
            text = ReadWholeFile(OpenUtf8(path), path);
        }
        catch (const CFileError& error)
        {
            Refuse(path, {0, 0, error.GetReason()});
            return;
        }
        AddText(text.get(), path);
    }

    void AddText(const char* paddedText, const char* name)
    {
        auto file = std::make_unique<CFakeMaterialLib>();
        if (auto failure = ReadMaterials(*file, paddedText))
        {
            Refuse(name, std::move(*failure));
            return;
        }
        library->files.push_back(std::move(file));
    }

    [[nodiscard]] ml_library* Finish()
    {
        auto& all = library->materials;
        for (const auto& file : library->files)
        {
            all.insert(all.end(), file->GetMaterials().begin(), file->GetMaterials().end());
        }
        const int count = static_cast<int>(all.size());
        library->names.Reset(count);
        for (int i = count - 1; i >= 0; --i) // of equal names the last one stays
        {
            library->names.Insert(all, i);
        }
        return library.release();
    }

private:
    void Refuse(const char* file, ReadFailure failure)
    {
        library->diagnostics.push_back({file, std::move(failure)});
        if (flags == ML_OPEN_ERROR_EMPTIES)
        {
            library->files.clear();
        }
    }

    std::uint32_t flags;
    std::unique_ptr<ml_library> library = std::make_unique<ml_library>();
};

bool IsWithin(double value, double lowest, double highest)
{
    return value >= lowest && value <= highest;
}

bool Passes(const CMaterial& material, const ml_filter& filter)
{
    int technology = MLTECHNOLOGY_UNKNOWN;
    material.GetIntAttribute(MLATTR_TECHNOLOGY, &technology);
    double thickness = notGiven;
    const bool isThicknessFine =
        material.GetAttribute(MLATTR_THICKNESS, &thickness)
            ? IsWithin(thickness, filter.thickness_min, filter.thickness_max)
            : filter.thickness_min == -unbounded && filter.thickness_max == unbounded;
    return isThicknessFine && (filter.kind == ML_ANY || filter.kind == material.GetKind()) &&
           (filter.technology == ML_ANY || filter.technology == technology) &&
           (filter.type == nullptr || std::strcmp(filter.type, material.GetTypeName()) == 0) &&
           (filter.vendor == nullptr || std::strcmp(filter.vendor, material.GetVendor()) == 0);
}
} // namespace

const char* ml_error_text(ml_error error)
{
    switch (error)
    {
    case ML_OK:
        return "No error.";
    case ML_ERROR_ARGUMENT:
        return "An argument is null, out of range or an unknown flag, or a struct_size is too small.";
    case ML_ERROR_MEMORY:
        return "There is not enough memory.";
    case ML_ERROR_NO_DATA:
        return "The material has no rows to answer from.";
    case ML_ERROR_NO_FIT:
        return "The rows of the material allow no model.";
    case ML_ERROR_INTERNAL:
        return "A defect of the material library.";
    case ML_ERROR_UNWRITABLE:
        return "No file can hold these materials.";
    case ML_ERROR_EXISTS:
        return "There is a file already.";
    case ML_ERROR_WRITE:
        return "The file cannot be written.";
    default:
        return "This number is no error of the material library.";
    }
}

const char* ml_version()
{
    return MATERIALLIBRARY_VERSION;
}

ml_error ml_open_files(const char* const* paths, size_t count, uint32_t flags, ml_library** library)
{
    if (library == nullptr || flags > ML_OPEN_ERROR_EMPTIES || (paths == nullptr && count > 0) ||
        std::find(paths, paths + count, nullptr) != paths + count)
    {
        return ML_ERROR_ARGUMENT;
    }
    return Guard(
        [=]
        {
            CLibraryMaker maker(flags);
            std::for_each(paths, paths + count, [&maker](const char* path) { maker.AddFile(path); });
            *library = maker.Finish();
            return ML_OK;
        });
}

ml_error ml_open_text(const char* text, size_t length, const char* name, uint32_t flags, ml_library** library)
{
    if (library == nullptr || flags > ML_OPEN_ERROR_EMPTIES || (text == nullptr && length > 0) ||
        name == nullptr)
    {
        return ML_ERROR_ARGUMENT;
    }
    return Guard(
        [=]
        {
            CLibraryMaker maker(flags);
            maker.AddText(PadText({text != nullptr ? text : "", length}).c_str(), name);
            *library = maker.Finish();
            return ML_OK;
        });
}

void ml_close(ml_library* library)
{
    delete library;
}

size_t ml_count_diagnostics(const ml_library* library)
{
    return library != nullptr ? library->diagnostics.size() : 0;
}

ml_error ml_get_diagnostic(const ml_library* library, size_t index, ml_diagnostic* diagnostic)
{
    if (index >= ml_count_diagnostics(library))
    {
        return ML_ERROR_ARGUMENT;
    }
    const auto& [file, failure] = library->diagnostics[index];
    return Fill(diagnostic, {0, file.c_str(), failure.line, failure.column, failure.reason.c_str()})
               ? ML_OK
               : ML_ERROR_ARGUMENT;
}

size_t ml_count_materials(const ml_library* library)
{
    return library != nullptr ? library->materials.size() : 0;
}

const ml_material* ml_get_material(const ml_library* library, size_t index)
{
    return index < ml_count_materials(library)
               ? ToHandle(static_cast<const CMaterial*>(library->materials[index]))
               : nullptr;
}

const ml_material* ml_find(const ml_library* library, const char* name)
{
    if (library == nullptr || name == nullptr || *name == '\0')
    {
        return nullptr;
    }
    return ToHandle(static_cast<const CMaterial*>(library->names.Find(library->materials, name)));
}

ml_error ml_get_info(const ml_material* material, ml_material_info* info)
{
    if (material == nullptr)
    {
        return ML_ERROR_ARGUMENT;
    }
    const CMaterial& from = FromHandle(material);
    int technology = MLTECHNOLOGY_UNKNOWN;
    from.GetIntAttribute(MLATTR_TECHNOLOGY, &technology);
    double thickness = notGiven;
    double resistivity = notGiven;
    const bool hasThickness = from.GetAttribute(MLATTR_THICKNESS, &thickness);
    const bool hasResistivity = from.GetAttribute(MLATTR_BULK_RESISTIVITY, &resistivity);
    return Fill(info,
                {0, from.GetName(), from.GetTypeName(), from.GetVendor(), from.GetComment(), from.GetKind(),
                 technology, hasThickness, hasResistivity, thickness, resistivity, from.GetTables().size()})
               ? ML_OK
               : ML_ERROR_ARGUMENT;
}

ml_error ml_filter_all(ml_filter* filter)
{
    return Fill(filter, {0, ML_ANY, ML_ANY, nullptr, nullptr, -unbounded, unbounded}) ? ML_OK
                                                                                      : ML_ERROR_ARGUMENT;
}

const ml_material* ml_next(const ml_library* library, const ml_filter* filter, size_t* index)
{
    if (library == nullptr || filter == nullptr || index == nullptr || filter->struct_size < sizeof *filter)
    {
        return nullptr;
    }
    while (*index < library->materials.size())
    {
        const auto* const material = static_cast<const CMaterial*>(library->materials[*index]);
        ++*index;
        if (Passes(*material, *filter))
        {
            return ToHandle(material);
        }
    }
    *index = library->materials.size();
    return nullptr;
}

ml_error ml_get_table(const ml_material* material, size_t index, ml_table* table)
{
    if (material == nullptr || index >= FromHandle(material).GetTables().size())
    {
        return ML_ERROR_ARGUMENT;
    }
    const CMaterialTable& from = *FromHandle(material).GetTables()[index];
    const std::span<const MLTBLENTRY> rows = from.GetEntries();
    return Fill(table, {0, from.GetTableKind(), from.GetTemperature(),
                        reinterpret_cast<const ml_row*>(rows.data()), rows.size()})
               ? ML_OK
               : ML_ERROR_ARGUMENT;
}
