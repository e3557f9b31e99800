/* Er and loss tangent of one laminate over frequency, and the poles of its model for a time-domain solver. */
#include "MaterialLibrary/materials.h"

#include <stdio.h>

static const char* describe(unsigned char status)
{
    switch (status & ML_STATUS_SOURCE)
    {
    case ML_FROM_ROW:
        return "measured";
    case ML_FROM_CONSTANT:
        return "constant";
    case ML_FROM_MODEL:
        return "model";
    case ML_FROM_MODEL_BELOW:
    case ML_FROM_MODEL_ABOVE:
        return "model, extrapolated";
    default:
        return "no value";
    }
}

static void print_diagnostics(const ml_library* library)
{
    size_t i;
    for (i = 0; i < ml_count_diagnostics(library); ++i)
    {
        ml_diagnostic found;
        found.struct_size = sizeof found;
        if (ml_get_diagnostic(library, i, &found) == ML_OK)
        {
            printf("%s:%u:%u: %s\n", found.file, (unsigned)found.line, (unsigned)found.column, found.reason);
        }
    }
}

static ml_error print_values(const ml_material* material)
{
    static const double frequencies[] = {1e5, 1e6, 2.5e9, 10e9, 77e9};
    enum
    {
        count = sizeof frequencies / sizeof *frequencies
    };
    double er[count], loss[count];
    uint8_t status[count];
    size_t i;
    ml_error error = ml_values(material, ML_ER, 25.0, ML_AS_MEASURED, frequencies, count, er, status);
    if (error == ML_OK)
    {
        error = ml_values(material, ML_LOSS_TANGENT, 25.0, ML_AS_MEASURED, frequencies, count, loss, NULL);
    }
    for (i = 0; error == ML_OK && i < count; ++i)
    {
        printf("%9.1f MHz  Er %.4f  tan(delta) %.5f  %s\n", frequencies[i] / 1e6, er[i], loss[i],
               describe(status[i]));
    }
    return error;
}

static ml_error print_poles(const ml_material* material)
{
    enum
    {
        most_poles = 100,
        per_decade = 1
    };
    ml_pole poles[most_poles];
    ml_model_info info;
    ml_model* model = NULL;
    size_t i, count = 0;
    double worst = 0.0;
    ml_error error = ml_make_model(material, 25.0, &model);
    info.struct_size = sizeof info;
    if (error == ML_OK)
    {
        error = ml_get_model_info(model, &info);
    }
    if (error == ML_OK)
    {
        error = ml_debye_poles(model, per_decade, 1e6, 20e9, poles, most_poles, &count, &worst);
    }
    if (error == ML_OK)
    {
        printf("eps_inf %.5f, %u terms; as single poles within %.2f %% from 1 MHz to 20 GHz:\n", info.eps_inf,
               (unsigned)info.term_count, 100.0 * worst);
        for (i = 0; i < count && i < most_poles; ++i)
        {
            printf("  %9.3e Hz  %.6f\n", poles[i].frequency, poles[i].delta_eps);
        }
    }
    ml_free_model(model);
    return error;
}

int main(int argc, char** argv)
{
    const char* const path = argc > 1 ? argv[1] : "DefaultMaterialD.mat";
    const ml_material* material;
    ml_library* library = NULL;
    ml_error error = ml_open_files(&path, 1, ML_OPEN_DEFAULT, &library);
    print_diagnostics(library);
    material = ml_find(library, "FR4 Standard Core 0.20 mm");
    if (error == ML_OK && material != NULL)
    {
        error = print_values(material);
        if (error == ML_OK)
        {
            error = print_poles(material);
        }
    }
    ml_close(library);
    if (error != ML_OK)
    {
        fprintf(stderr, "%s\n", ml_error_text(error));
    }
    return error == ML_OK && material != NULL ? 0 : 1;
}
