#pragma once

#include "MaterialLibrary/MaterialLibrary.h"

#include <windows.h>

#include <memory>
#include <stdexcept>
#include <string>

// MaterialLibrary.dll, loaded and used as a host does.
class CModule
{
public:
    using Library = std::unique_ptr<IMatLib, MLFREEMATERIALLIBRARY>;

    explicit CModule(const std::string& path)
        : handle(LoadLibraryA(path.c_str())), create(Find<MLCREATEMATERIALLIBRARY>("CreateMaterialLibrary")),
          free(Find<MLFREEMATERIALLIBRARY>("FreeMaterialLibrary"))
    {
        if (create == nullptr || free == nullptr)
        {
            throw std::runtime_error("cannot load " + path);
        }
    }
    ~CModule() { FreeLibrary(handle); }
    CModule(const CModule&) = delete;
    CModule& operator=(const CModule&) = delete;

    [[nodiscard]] HMODULE GetHandle() const { return handle; }
    [[nodiscard]] Library Create(const char* fileList) const { return {create(fileList), free}; }

    // Where the build puts the module.
    [[nodiscard]] static std::string GetBuiltPath()
    {
        char path[MAX_PATH] = {};
        GetFullPathNameA(ML_BINARY_DIR "/bin/MaterialLibrary.dll", MAX_PATH, path, nullptr);
        return path;
    }

private:
    template <class Function>
    [[nodiscard]] Function Find(const char* name) const
    {
        return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(handle, name)));
    }

    HMODULE handle;
    MLCREATEMATERIALLIBRARY create;
    MLFREEMATERIALLIBRARY free;
};
