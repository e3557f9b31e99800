#pragma once

#include "MaterialLibrary/CManagerAdapter.h"
#include "shared/MessageManager/CHandlerModule.h"

namespace msg
{
// Shows messages in plain system message boxes, for programs without a handler module. The box offers no
// choice not to show a message again; choices that a host's registrator holds are respected.
class ManagerStub final : public CManagerAdapter
{
public:
    explicit ManagerStub(CHandlerModule& handlerModule) : handler(&handlerModule) {}

protected:
    int OnMessage(const MessageRequest& request) override;

private:
    CHandlerModule* handler;
};
} // namespace msg
