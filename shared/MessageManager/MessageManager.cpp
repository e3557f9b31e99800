#include "shared/MessageManager/MessageManager.h"

#include "shared/MessageManager/ManagerStub.h"

#include <new>

msg::IManager* GetMessageManager()
{
    static msg::CHandlerModule handler(GetSystemModuleLoader());
    static msg::ManagerStub stub(handler);
    msg::IManager* const manager = handler.FindEnabledManager();
    return manager != nullptr ? manager : &stub;
}

void ShowWarning(const char* text)
{
    try
    {
        GetMessageManager()->ShowGenericDefaultOwner(msg::severityWarning, text, nullptr);
    }
    catch (const std::bad_alloc&)
    {
        throw;
    }
    catch (...) // NOLINT(bugprone-empty-catch): a host's handler that fails is no failure of the library
    {
    }
}
