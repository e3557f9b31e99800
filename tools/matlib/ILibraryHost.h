#pragma once

#include "MaterialLibrary/IMatLib.h"

#include <memory>
#include <string>
#include <vector>

// The material library as a host reaches it. Messages open no box unless told so: they are kept
// until they are taken.
class ILibraryHost
{
public:
    virtual ~ILibraryHost() = default;

    // CreateMaterialLibrary and FreeMaterialLibrary of the library.
    [[nodiscard]] virtual IMatLib* Create(const char* fileList) = 0;
    virtual void Free(IMatLib* library) = 0;

    // The texts that the library showed since the last call, in their order.
    [[nodiscard]] virtual std::vector<std::string> TakeMessages() = 0;

    // From now on the library's messages open boxes, where it has a dialog of which they are a part.
    virtual void ShowMessagesInBoxes() = 0;
};

// The library of this build: linked, or on Windows the DLL at `dllPath` (empty: MaterialLibrary.dll beside
// the program). Only one may exist at a time. Throws CFailure when the library cannot be loaded.
[[nodiscard]] std::unique_ptr<ILibraryHost> OpenLibraryHost(const std::string& dllPath);

struct FreeLibrary
{
    ILibraryHost* host;
    void operator()(IMatLib* library) const { host->Free(library); }
};
using LibraryPtr = std::unique_ptr<IMatLib, FreeLibrary>;

// A library made from the files; the sample library when there are none. Never null.
[[nodiscard]] LibraryPtr MakeLibrary(ILibraryHost& host, const std::vector<std::string>& files);
