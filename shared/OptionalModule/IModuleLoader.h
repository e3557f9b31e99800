#pragma once

// Finds modules that a host may supply beside the library, and their entry points.
class IModuleLoader
{
public:
    using Module = void*;
    using EntryPoint = void (*)();

    virtual ~IModuleLoader() = default;

    // Loads the module of that file name, or finds it if the process has it already; null when there is
    // none. A loaded module is never released.
    [[nodiscard]] virtual Module Load(const char* name) = 0;

    // The module's entry point of that name, or null.
    [[nodiscard]] virtual EntryPoint Resolve(Module module, const char* name) = 0;
};

// The module's entry point of that name as a function pointer of type `Function`, or null.
template <class Function>
[[nodiscard]] Function ResolveAs(IModuleLoader& loader, IModuleLoader::Module module, const char* name)
{
    return reinterpret_cast<Function>(loader.Resolve(module, name));
}

// The loader of the platform: on Windows modules come from the host's folder, this module's folder,
// System32 and the folders that the host added with AddDllDirectory, never from the current folder or
// PATH; elsewhere there are no optional modules.
[[nodiscard]] IModuleLoader& GetSystemModuleLoader();
