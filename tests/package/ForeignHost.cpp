// A host in the object format of another C++ compiler, linked to that format's import library and to nothing
// else. Its exit code is 0, or the number of the check that failed.
#include "MaterialLibrary/MaterialLibrary.h"

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

extern "C" int Start()
{
    IMatLib* const library = CreateMaterialLibrary(nullptr);
    if (library == nullptr || library->GetMaterialCount() != 4)
    {
        return 1;
    }
    const int failed = CheckLibrary(*library);
    FreeMaterialLibrary(library);
    return failed;
}
