#pragma once

#include "MaterialLibrary/IManager.h"
#include "shared/OptionalModule/IModuleLoader.h"

namespace msg
{
// The host's optional module "MsgHandler.dll". Never released once loaded.
class CHandlerModule
{
public:
    explicit CHandlerModule(IModuleLoader& moduleLoader) : loader(moduleLoader) {}

    // The module's manager if the module is there and enabled at this moment, otherwise null. The first
    // call loads the module.
    [[nodiscard]] IManager* FindEnabledManager();

    // The module's store of don't-show-again choices, or null. Loads the module if it was not loaded yet.
    [[nodiscard]] IRegistrator* FindRegistrator();

private:
    void Load();

    IModuleLoader& loader;
    IModuleLoader::Module module = nullptr;
    IManager* manager = nullptr;
    bool managerAsked = false;
    IManager* (*getManager)() = nullptr;
    bool (*isEnabled)() = nullptr;
    void (*setEnabled)(bool) = nullptr;
    void (*setRegistrator)(IRegistrator*) = nullptr;
    IRegistrator* (*getRegistrator)() = nullptr;
};
} // namespace msg
