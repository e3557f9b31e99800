#include "MaterialLibrary/MaterialLibrary.h"

#include <cmath>
#include <cstdio>

int main()
{
    IMatLib* const library = CreateMaterialLibrary("DefaultMaterialD.mat");
    double er = NAN; // stays as it is where there is no value
    if (IMaterial* const core = library->FindMaterial("FR4 Standard Core 0.20 mm"))
    {
        core->GetValue(MLTABLE_ER, 2.5e9, &er, 25.0); // at 2.5 GHz and 25 °C
    }
    FreeMaterialLibrary(library);
    std::printf("Er = %.4f\n", er);
}
