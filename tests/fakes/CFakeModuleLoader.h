#pragma once

#include "shared/OptionalModule/IModuleLoader.h"

#include <map>
#include <string>

// Has the modules that a test gives it and counts how often each name was asked for.
class CFakeModuleLoader final : public IModuleLoader
{
public:
    using EntryPoints = std::map<std::string, EntryPoint>;

    std::map<std::string, EntryPoints> modules;
    std::map<std::string, int> loads;

    [[nodiscard]] Module Load(const char* name) override
    {
        ++loads[name];
        const auto found = modules.find(name);
        return found != modules.end() ? &found->second : nullptr;
    }

    [[nodiscard]] EntryPoint Resolve(Module module, const char* name) override
    {
        const EntryPoints& entryPoints = *static_cast<EntryPoints*>(module);
        const auto found = entryPoints.find(name);
        return found != entryPoints.end() ? found->second : nullptr;
    }
};

template <class Function>
[[nodiscard]] IModuleLoader::EntryPoint AsEntryPoint(Function* function)
{
    return reinterpret_cast<IModuleLoader::EntryPoint>(function);
}
