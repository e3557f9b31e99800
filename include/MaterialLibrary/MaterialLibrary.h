// What a host compiles against: the interfaces and the two entry points of MaterialLibrary.dll.
#pragma once

#include "MaterialLibrary/IMatLib.h"
#include "MaterialLibrary/IMaterial.h"
#include "MaterialLibrary/IMaterialTable.h"
#include "MaterialLibrary/MLTypes.h"

extern "C"
{
    // Creates a library from the material files in `fileList`: paths in the system's multibyte code page,
    // separated by ";". Null gives the built-in sample library.
    //
    // Paths that do not exist or name a directory are skipped. A file that cannot be read causes one
    // message and removes everything that was read before it. The files after it are still read. If the
    // files contain no dielectric, there is one message at the end. The result is never null but may be
    // an empty library. Throws std::bad_alloc when memory is exhausted, and nothing else.
    IMatLib* CreateMaterialLibrary(const char* fileList);

    // Releases the library and everything obtained from it. Null does nothing.
    void FreeMaterialLibrary(IMatLib* library);

    // The type of CreateMaterialLibrary, for GetProcAddress.
    using MLCREATEMATERIALLIBRARY = IMatLib* (*)(const char* fileList);
    // The type of FreeMaterialLibrary.
    using MLFREEMATERIALLIBRARY = void (*)(IMatLib* library);
}
