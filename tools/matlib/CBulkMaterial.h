#pragma once

#include "MaterialLibrary/MLTypes.h"
#include "MaterialLibrary/materials.h"

#include <cstdint>
#include <memory>
#include <span>
#include <vector>

class IMaterial;

// Throws std::bad_alloc for want of memory, CFailure with its text for any other error of the library for C.
void Require(ml_error error);

// Values of one property, and where each comes from (ML_FROM_ROW and so on).
struct BulkValues
{
    std::vector<double> values;
    std::vector<std::uint8_t> status;
};

struct FreeModel
{
    void operator()(ml_model* model) const { ml_free_model(model); }
};
using ModelPtr = std::unique_ptr<ml_model, FreeModel>;

// A material of a host's library as the library for C sees it, with the rows that it had when it was taken.
// It answers for many frequencies at once and says where its answers come from.
class CBulkMaterial
{
public:
    explicit CBulkMaterial(IMaterial& material);

    // At a temperature in °C for frequencies in Hz. `smooth`: the model at every frequency, and roughness
    // factors on the straight lines between rows.
    [[nodiscard]] BulkValues Ask(MLTABLEKIND property, double temperature, bool smooth,
                                 std::span<const double> frequencies) const;

    // The model at that temperature; null where the rows allow none.
    [[nodiscard]] ModelPtr MakeModel(double temperature) const;

private:
    struct CloseLibrary
    {
        void operator()(ml_library* opened) const { ml_close(opened); }
    };

    std::unique_ptr<ml_library, CloseLibrary> library;
    const ml_material* handle;
};
