#include "shared/MessageManager/CHandlerModule.h"

namespace msg
{
void CHandlerModule::Load()
{
    if (module == nullptr)
    {
        module = loader.Load("MsgHandler.dll");
    }
    if (module == nullptr)
    {
        return;
    }
    getManager = ResolveAs<decltype(getManager)>(loader, module, "GetMsgHandlerManager");
    isEnabled = ResolveAs<decltype(isEnabled)>(loader, module, "IsMsgHandlerEnabled");
    setEnabled = ResolveAs<decltype(setEnabled)>(loader, module, "SetMsgHandlerEnabled");
    setRegistrator = ResolveAs<decltype(setRegistrator)>(loader, module, "SetMsgHandlerRegistrator");
    getRegistrator = ResolveAs<decltype(getRegistrator)>(loader, module, "GetMsgHandlerRegistrator");
    if (manager == nullptr && getManager != nullptr && isEnabled != nullptr && setEnabled != nullptr)
    {
        manager = getManager();
    }
    if (manager == nullptr)
    {
        isEnabled = nullptr;
        setEnabled = nullptr;
        setRegistrator = nullptr;
        getRegistrator = nullptr;
    }
}

IManager* CHandlerModule::FindEnabledManager()
{
    if (!managerAsked)
    {
        managerAsked = true;
        if (manager == nullptr)
        {
            Load();
        }
    }
    return manager != nullptr && isEnabled() ? manager : nullptr;
}

IRegistrator* CHandlerModule::FindRegistrator()
{
    if (getRegistrator == nullptr)
    {
        Load();
    }
    return getRegistrator != nullptr ? getRegistrator() : nullptr;
}
} // namespace msg
