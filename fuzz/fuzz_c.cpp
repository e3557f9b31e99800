// Any bytes through the C interface: the text of a file, and after its last NUL what to ask of its materials.
#include "MaterialLibrary/materials.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string_view>

namespace
{
void Require(bool condition)
{
    if (!condition)
    {
        std::abort();
    }
}

// Questions read from the input; 0 when it is used up.
class CQuestions
{
public:
    explicit CQuestions(std::string_view bytes) : rest(bytes) {}

    template <class Number>
    [[nodiscard]] Number Next()
    {
        Number number{};
        const std::size_t size = std::min(sizeof number, rest.size());
        std::memcpy(&number, rest.data(), size);
        rest.remove_prefix(size);
        return number;
    }

private:
    std::string_view rest;
};

void AskModel(const ml_model* model, CQuestions& questions)
{
    ml_model_info info{};
    info.struct_size = sizeof info;
    Require(ml_get_model_info(model, &info) == ML_OK && info.term_count > 0 && info.residual_count > 0);
    ml_term term{};
    Require(ml_get_term(model, info.term_count - 1, &term) == ML_OK && term.f1 < term.f2);
    ml_residual residual{};
    Require(ml_get_residual(model, info.residual_count - 1, &residual) == ML_OK);
    ml_pole pole{};
    std::size_t count = 0;
    double worst = 0.0;
    const auto perDecade = static_cast<std::uint32_t>(questions.Next<std::uint8_t>() % 4 + 1);
    Require(ml_debye_poles(model, perDecade, 1e9, 1.05e9, &pole, 1, &count, &worst) == ML_OK);
    Require(count == 0 || pole.frequency > 0.0);
    double real = 0.0, imaginary = 0.0;
    Require(ml_permittivity(model, &residual.frequency, 1, &real, &imaginary) == ML_OK);
}

void AskMaterial(const ml_material* material, CQuestions& questions)
{
    const double temperature = questions.Next<std::int8_t>();
    const double frequencies[] = {1e9, 2.5e9, questions.Next<double>(), questions.Next<float>()};
    for (int property = ML_ER; property <= ML_ROUGHNESS_BOTTOM; ++property)
    {
        const std::uint32_t flags = questions.Next<std::uint8_t>() % 4;
        double values[4];
        std::uint8_t status[4];
        Require(ml_values(material, property, temperature, flags, frequencies, 4, values, status) == ML_OK);
        const int source = status[0] & ML_STATUS_SOURCE;
        Require(source <= ML_NO_DATA && (source != ML_NO_DATA || std::isnan(values[0])));
    }
    ml_model* model = nullptr;
    const ml_error error = ml_make_model(material, temperature, &model);
    Require(error == ML_OK || (model == nullptr && (error == ML_ERROR_NO_DATA || error == ML_ERROR_NO_FIT)));
    if (model != nullptr)
    {
        AskModel(model, questions);
    }
    ml_free_model(model);
}

void AskLibrary(const ml_library* library, CQuestions& questions)
{
    constexpr std::size_t most = 2; // what more would say costs time
    ml_filter filter{};
    filter.struct_size = sizeof filter;
    Require(ml_filter_all(&filter) == ML_OK);
    for (std::size_t i = 0; const ml_material* const material = ml_next(library, &filter, &i);)
    {
        ml_material_info info{};
        info.struct_size = sizeof info;
        Require(ml_get_info(material, &info) == ML_OK);
        Require(*info.name == '\0' || ml_find(library, info.name) != nullptr);
        ml_table table{};
        table.struct_size = sizeof table;
        for (std::size_t k = 0; k < info.table_count; ++k)
        {
            Require(ml_get_table(material, k, &table) == ML_OK);
            Require(table.row_count == 0 || !std::isnan(table.rows[table.row_count - 1].frequency));
        }
        if (i <= most)
        {
            AskMaterial(material, questions);
        }
    }
    filter.kind = questions.Next<std::uint8_t>() % 2;
    filter.type = "FR4";
    filter.thickness_max = questions.Next<float>();
    for (std::size_t i = 0; ml_next(library, &filter, &i) != nullptr;)
    {
    }
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    const std::size_t end = std::min(input.rfind('\0'), size);
    CQuestions questions(input.substr(end));
    ml_library* library = nullptr;
    const std::uint32_t flags = questions.Next<std::uint16_t>() >> 8 & 1u;
    Require(ml_open_text(input.data(), end, "x", flags, &library) == ML_OK);
    const std::size_t failures = ml_count_diagnostics(library);
    ml_diagnostic found{};
    found.struct_size = sizeof found;
    Require(failures == 0 ||
            (ml_count_materials(library) == 0 && ml_get_diagnostic(library, 0, &found) == ML_OK &&
             found.line > 0 && *found.reason != '\0'));
    AskLibrary(library, questions);
    ml_close(library);
    return 0;
}
