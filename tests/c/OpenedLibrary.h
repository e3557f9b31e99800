#pragma once

#include "MaterialLibrary/materials.h"

#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

struct CloseLibrary
{
    void operator()(ml_library* library) const { ml_close(library); }
};
using OpenedLibrary = std::unique_ptr<ml_library, CloseLibrary>;

struct FreeModel
{
    void operator()(ml_model* model) const { ml_free_model(model); }
};
using OwnedModel = std::unique_ptr<ml_model, FreeModel>;

// The library of the blocks, each without its header.
inline OpenedLibrary OpenBlocks(const std::string& blocks)
{
    const std::string text = "{MAT_FILE}{VERSION=1.0}\n" + blocks;
    ml_library* library = nullptr;
    EXPECT_EQ(ml_open_text(text.data(), text.size(), "x.mat", ML_OPEN_DEFAULT, &library), ML_OK);
    EXPECT_EQ(ml_count_diagnostics(library), 0u);
    return OpenedLibrary(library);
}

inline OpenedLibrary OpenPaths(const std::vector<std::string>& paths, std::uint32_t flags)
{
    std::vector<const char*> names;
    for (const std::string& path : paths)
    {
        names.push_back(path.c_str());
    }
    ml_library* library = nullptr;
    EXPECT_EQ(ml_open_files(names.data(), names.size(), flags, &library), ML_OK);
    return OpenedLibrary(library);
}

// A struct that tells the library its size.
template <class Struct>
Struct Sized()
{
    Struct made{};
    made.struct_size = sizeof made;
    return made;
}
