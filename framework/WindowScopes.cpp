#include "framework/WindowScopes.h"

#include "framework/CHandle.h"
#include "framework/ModuleResources.h"

#include <windows.h>

#include <commctrl.h>

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

// Not while the module is loaded: the common controls are a module too.
bool LoadCommonControls()
{
    const INITCOMMONCONTROLSEX settings{sizeof settings, ICC_STANDARD_CLASSES | ICC_LISTVIEW_CLASSES};
    return InitCommonControlsEx(&settings) != FALSE;
}
} // namespace

CThemedControlsScope::CThemedControlsScope() noexcept
{
    static const CActivationContextHandle context = MakeModuleContext();
    active = context && ActivateActCtx(context.get(), &cookie) != FALSE;
    [[maybe_unused]] static const bool loaded = LoadCommonControls();
}

CThemedControlsScope::~CThemedControlsScope()
{
    if (active)
    {
        DeactivateActCtx(0, cookie);
    }
}
