// The smallest host of MaterialLibrary.dll: lists the materials of the files that its argument names
// ("a.mat;b.mat"; without one: the built-in samples) and prints Er and loss tangent of the first one at 2.5
// GHz and 25 °C.
#include "MaterialLibrary/MaterialLibrary.h"

#include <windows.h>

#include <cmath>
#include <cstdio>

namespace
{
void PrintProperties(IMaterial& material)
{
    constexpr double frequency = 2.5e9;  // Hz
    constexpr double temperature = 25.0; // °C
    double permittivity = NAN;           // stays as it is when the material has no tables
    double lossTangent = NAN;
    material.GetValue(MLTABLE_ER, frequency, &permittivity, temperature);
    material.GetValue(MLTABLE_LOSS_TANGENT, frequency, &lossTangent, temperature);
    std::printf("%s at 2.5 GHz: Er %.4f, loss tangent %.5f\n", material.GetName(), permittivity, lossTangent);
}

void PrintLibrary(IMatLib& library)
{
    for (int index = 0; index < library.GetMaterialCount(); ++index)
    {
        std::printf("%s\n", library.GetMaterial(index)->GetName());
    }
    if (IMaterial* const first = library.GetMaterial(0))
    {
        PrintProperties(*first);
    }
}
} // namespace

int main(int argc, char** argv)
{
    const HMODULE module = LoadLibraryA("MaterialLibrary.dll");
    const auto create = reinterpret_cast<MLCREATEMATERIALLIBRARY>(
        reinterpret_cast<void (*)()>(GetProcAddress(module, "CreateMaterialLibrary")));
    const auto release = reinterpret_cast<MLFREEMATERIALLIBRARY>(
        reinterpret_cast<void (*)()>(GetProcAddress(module, "FreeMaterialLibrary")));
    if (create == nullptr || release == nullptr)
    {
        std::fprintf(stderr, "MaterialLibrary.dll belongs beside this program\n");
        return 1;
    }
    IMatLib* const library = create(argc > 1 ? argv[1] : nullptr);
    PrintLibrary(*library);
    release(library);
    FreeLibrary(module);
}
