// A host in the object format of another C++ compiler, linked to that format's import libraries and to
// nothing else. Its exit code is 0, or the number of the check that failed.
#include "MaterialLibrary/MaterialLibrary.h"
#include "MaterialLibrary/materials.h"

extern "C" int _fltused = 0; // marks a program that calculates; normally in that compiler's run-time library

static int CheckLibrary(IMatLib& library)
{
    IMaterial* const material = library.FindMaterial("Getinaks");
    if (material == nullptr)
    {
        return 2;
    }
    double er = 0.0;
    material->GetValue(MLTABLE_ER, 2.5e9, &er, 25.0);
    if (!(er > 5.17 && er < 5.18))
    {
        return 3;
    }
    const IMaterialTable* const table = material->GetTable(MLTABLE_ER, 25.0);
    return table != nullptr && table->GetEntry(0).frequency > 0.0 ? 0 : 4;
}

static int CheckInterfaceForC()
{
    const char text[] =
        "{MAT_FILE}{VERSION=1.0}{DIELECTRIC (NAME=\"x\")(ER VALUE=4)(LOSSTANGENT VALUE=0.02)}";
    ml_library* library = nullptr;
    if (ml_open_text(text, sizeof text, "x.mat", ML_OPEN_DEFAULT, &library) != ML_OK)
    {
        return 5;
    }
    const double frequency = 2.5e9;
    double er = 0.0;
    unsigned char status = 0;
    const ml_error error =
        ml_values(ml_find(library, "x"), ML_ER, 25.0, ML_AS_MEASURED, &frequency, 1, &er, &status);
    ml_close(library);
    return error == ML_OK && er == 4.0 && status == ML_FROM_CONSTANT ? 0 : 6;
}

extern "C" int Start()
{
    IMatLib* const library = CreateMaterialLibrary(nullptr);
    if (library == nullptr || library->GetMaterialCount() != 4)
    {
        return 1;
    }
    const int failed = CheckLibrary(*library);
    FreeMaterialLibrary(library);
    return failed != 0 ? failed : CheckInterfaceForC();
}
