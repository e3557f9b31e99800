// A message handler that says on the standard output what it is asked for, through a manager and a
// registrator of another compiler. The environment variable ML_FAKE_HANDLER may hold the word "disabled".
#include "MaterialLibrary/IManager.h"
#include "tests/win32/Console.h"
#include "tests/win32/foreign/ForeignManager.h"

#include <string>

namespace
{
std::string OrNull(const char* text)
{
    return std::string(" ") + (text != nullptr ? text : "null");
}

void PrintSlot(unsigned slot, const msg::MessageRequest* message)
{
    std::string line = "slot " + std::to_string(slot);
    if (message != nullptr)
    {
        line += " " + std::to_string(reinterpret_cast<std::uintptr_t>(message->owner)) + OrNull(message->id) +
                OrNull(message->type) + " " + std::to_string(message->severity) + OrNull(message->text) +
                " " + std::to_string(message->buttons) + OrNull(message->caption) +
                OrNull(message->checkText);
    }
    PrintLine(line);
}

void PrintCall(const char* operation, const char* id)
{
    PrintLine(operation + OrNull(id));
}
} // namespace

extern "C"
{
    msg::IManager* GetMsgHandlerManager()
    {
        PrintLine("GetMsgHandlerManager");
        return GetForeignManager(PrintSlot);
    }

    bool IsMsgHandlerEnabled()
    {
        return GetEnvironmentVariableA("ML_FAKE_HANDLER", nullptr, 0) == 0;
    }

    void SetMsgHandlerEnabled(bool /*enabled*/)
    {
        PrintLine("SetMsgHandlerEnabled");
    }

    void SetMsgHandlerRegistrator(msg::IRegistrator* /*registrator*/)
    {
        PrintLine("SetMsgHandlerRegistrator");
    }

    msg::IRegistrator* GetMsgHandlerRegistrator()
    {
        return GetForeignRegistrator(PrintCall);
    }
}
