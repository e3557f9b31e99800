// What a host compiles against: the interfaces and the two entry points of MaterialLibrary.dll.
#pragma once

#include "MaterialLibrary/IMatLib.h"
#include "MaterialLibrary/IMaterial.h"
#include "MaterialLibrary/IMaterialTable.h"
#include "MaterialLibrary/MLTypes.h"

extern "C"
{
    // Makes a library from the material files named in `fileList`: paths in the system's multibyte code
    // page, separated by ";". Null gives the built-in sample library.
    //
    // Paths that do not exist or name a directory are skipped. A file that cannot be read shows one
    // message and empties the library of everything read before it; the files after it are still read.
    // A list that yields no dielectric shows one message. In all these cases a library is returned, which
    // may be empty; it is never null. Throws std::bad_alloc when memory is exhausted, nothing else.
    IMatLib* CreateMaterialLibrary(const char* fileList);

    // Releases the library with everything it handed out. Null does nothing.
    void FreeMaterialLibrary(IMatLib* library);

    // The type of CreateMaterialLibrary, for GetProcAddress.
    using MLCREATEMATERIALLIBRARY = IMatLib* (*)(const char* fileList);
    // The type of FreeMaterialLibrary.
    using MLFREEMATERIALLIBRARY = void (*)(IMatLib* library);
}
