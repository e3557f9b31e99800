#include "shared/OptionalModule/IModuleLoader.h"

namespace
{
class CNoModules final : public IModuleLoader
{
public:
    [[nodiscard]] Module Load(const char*) override { return nullptr; }
    [[nodiscard]] EntryPoint Resolve(Module, const char*) override { return nullptr; }
};
} // namespace

IModuleLoader& GetSystemModuleLoader()
{
    static CNoModules loader;
    return loader;
}
