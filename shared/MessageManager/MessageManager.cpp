#include "shared/MessageManager/MessageManager.h"

#include "shared/MessageManager/ISystemMessageBox.h"
#include "shared/MessageManager/ManagerStub.h"

#include <new>
#include <utility>

namespace
{
msg::ISystemMessageBox* replacement = nullptr;
}

msg::ISystemMessageBox& msg::GetSystemMessageBox()
{
    return replacement != nullptr ? *replacement : GetPlatformMessageBox();
}

msg::ISystemMessageBox* msg::ReplaceSystemMessageBox(ISystemMessageBox* box)
{
    return std::exchange(replacement, box);
}

msg::IManager* GetMessageManager()
{
    static msg::CHandlerModule handler(GetSystemModuleLoader());
    static msg::ManagerStub stub(handler);
    msg::IManager* const manager = handler.FindEnabledManager();
    return manager != nullptr ? manager : &stub;
}

namespace
{
template <class Show>
void ShowShielded(Show show)
{
    try
    {
        show(*GetMessageManager());
    }
    catch (const std::bad_alloc&)
    {
        throw;
    }
    catch (...) // NOLINT(bugprone-empty-catch): a host's handler that fails is no failure of the library
    {
    }
}
} // namespace

void ShowWarning(const char* text)
{
    ShowShielded([text](msg::IManager& manager)
                 { manager.ShowGenericDefaultOwner(msg::severityWarning, text, nullptr); });
}

void ShowWarning(msg::WindowHandle owner, const char* text)
{
    ShowShielded([=](msg::IManager& manager)
                 { manager.ShowGeneric(owner, msg::severityWarning, text, nullptr); });
}
