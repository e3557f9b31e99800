#include "framework/WindowScopes.h"

#include "framework/CHandle.h"
#include "framework/ModuleResources.h"

namespace
{
CActivationContextHandle MakeModuleContext()
{
    ACTCTXW settings{};
    settings.cbSize = sizeof settings;
    settings.dwFlags = ACTCTX_FLAG_RESOURCE_NAME_VALID | ACTCTX_FLAG_HMODULE_VALID;
    settings.hModule = GetModuleInstance();
    settings.lpResourceName = MAKEINTRESOURCEW(2);
    const HANDLE context = CreateActCtxW(&settings);
    return CActivationContextHandle(context == INVALID_HANDLE_VALUE ? nullptr : context);
}
} // namespace

CThemedControlsScope::CThemedControlsScope() noexcept
{
    static const CActivationContextHandle context = MakeModuleContext();
    active = context && ActivateActCtx(context.Get(), &cookie) != FALSE;
}

CThemedControlsScope::~CThemedControlsScope()
{
    if (active)
    {
        DeactivateActCtx(0, cookie);
    }
}
