#include "tools/matlib/CBulkMaterial.h"

#include "tools/matlib/CFailure.h"
#include "tools/matlib/MaterialFacts.h"
#include "tools/matlib/Wording.h"

#include <cmath>
#include <new>
#include <string>

namespace
{
// The number as a material file holds it, which reads back exactly. Infinity came from a number out of range.
std::string WriteNumber(double number)
{
    if (std::isinf(number))
    {
        return number > 0.0 ? "1e999" : "-1e999";
    }
    return FormatExactly(number);
}

std::string WriteTable(const IMaterialTable& table)
{
    std::string text = "(" + std::string(WordsOf(table.GetTableKind()).record) +
                       " TEMPERATURE = " + WriteNumber(table.GetTemperature()) + " TABLE =\n";
    for (int index = 0; index < table.GetEntryCount(); ++index)
    {
        const MLTBLENTRY& row = table.GetEntry(index);
        text += WriteNumber(row.frequency) + " " + WriteNumber(row.value) + "\n";
    }
    return text + ")\n";
}

std::string WriteMaterial(IMaterial& material)
{
    std::string text = "{MAT_FILE}\n{VERSION=1.0}\n";
    text += material.GetKind() == MLMATERIAL_METAL ? "{METAL\n" : "{DIELECTRIC\n";
    for (const IMaterialTable* table : ListTables(material))
    {
        text += WriteTable(*table);
    }
    return text + "}\n";
}
} // namespace

void Require(ml_error error)
{
    if (error == ML_ERROR_MEMORY)
    {
        throw std::bad_alloc();
    }
    if (error != ML_OK)
    {
        throw CFailure(ml_error_text(error));
    }
}

CBulkMaterial::CBulkMaterial(IMaterial& material)
{
    const std::string text = WriteMaterial(material);
    ml_library* opened = nullptr;
    Require(ml_open_text(text.data(), text.size(), material.GetName(), ML_OPEN_DEFAULT, &opened));
    library.reset(opened);
    handle = ml_get_material(opened, 0);
    if (handle == nullptr)
    {
        throw CFailure("the rows of " + Quote(material.GetName()) + " cannot be taken over");
    }
}

BulkValues CBulkMaterial::Ask(MLTABLEKIND property, double temperature, bool smooth,
                              std::span<const double> frequencies) const
{
    BulkValues answer{std::vector<double>(frequencies.size()), std::vector<std::uint8_t>(frequencies.size())};
    const unsigned flags = smooth ? ML_MODEL_EVERYWHERE | ML_STRAIGHT_ROUGHNESS : ML_AS_MEASURED;
    Require(ml_values(handle, property, temperature, flags, frequencies.data(), frequencies.size(),
                      answer.values.data(), answer.status.data()));
    return answer;
}

ModelPtr CBulkMaterial::MakeModel(double temperature) const
{
    ml_model* model = nullptr;
    const ml_error error = ml_make_model(handle, temperature, &model);
    if (error != ML_ERROR_NO_DATA && error != ML_ERROR_NO_FIT)
    {
        Require(error);
    }
    return ModelPtr(model);
}
