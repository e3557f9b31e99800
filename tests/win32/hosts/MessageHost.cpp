// Calls the message manager of a program that is linked with it: message_host slots|boxes
// "slots" calls every slot of the manager. "boxes" shows plain boxes first, the handler module being switched
// off by the environment, and then switches it on.
#include "shared/MessageManager/MessageManager.h"
#include "tests/win32/CMessageBoxRobot.h"
#include "tests/win32/Console.h"

#include <string>

namespace
{
msg::WindowHandle const noOwner = nullptr;

int Add(void* a, void* b, void* c, void* d)
{
    return *static_cast<int*>(a) + *static_cast<int*>(b) + *static_cast<int*>(c) + *static_cast<int*>(d);
}

void PrintAnswer(int answer)
{
    PrintLine("answer " + std::to_string(answer));
}

void CallMessageSlots(msg::IManager& manager)
{
    PrintAnswer(manager.Show(noOwner, "t", 1, "text", "cap"));
    PrintAnswer(manager.ShowGeneric(noOwner, 2, "text", "cap"));
    PrintAnswer(manager.ShowDefaultOwner("t", 3, "text", "cap"));
    PrintAnswer(manager.ShowGenericDefaultOwner(4, "text", nullptr));
    PrintAnswer(manager.ShowOnce(noOwner, "id", "t", 5, "text", "cap", "check"));
    PrintAnswer(manager.ShowOnceGeneric(noOwner, "suppressed", 6, "text", "cap", nullptr));
    PrintAnswer(manager.ShowOnceDefaultOwner("id", "t", 7, "text", "cap", "check"));
    PrintAnswer(manager.ShowOnceGenericDefaultOwner("suppressed", 8, "text", "cap", "check"));
}

void CallQuestionSlots(msg::IManager& manager)
{
    PrintAnswer(manager.Ask(noOwner, "t", 1, "text", 4, "cap"));
    PrintAnswer(manager.AskGeneric(noOwner, 2, "text", 5, "cap"));
    PrintAnswer(manager.AskDefaultOwner("t", 3, "text", 6, "cap"));
    PrintAnswer(manager.AskGenericDefaultOwner(4, "text", 7, "cap"));
    PrintAnswer(manager.AskRemembered(noOwner, "id", "t", 5, "text", 8, "cap", "check"));
    PrintAnswer(manager.AskRememberedGeneric(noOwner, "id", 6, "text", 9, "cap", "check"));
    PrintAnswer(manager.AskRememberedDefaultOwner("id", "t", 7, "text", 10, "cap", "check"));
    PrintAnswer(manager.AskRememberedGenericDefaultOwner("id", 8, "text", 11, "cap", "check"));
}

void CallOtherSlots(msg::IManager& manager)
{
    int numbers[] = {1, 20, 300, 4000};
    PrintAnswer(manager.Invoke(Add, &numbers[0], &numbers[1], &numbers[2], &numbers[3]));
    manager.Reserved17();
    PrintLine(manager.Query18() ? "true" : "false");
    manager.Reserved19();
    manager.Reserved20();
    manager.Reserved21();
    manager.Reserved22();
    manager.Reserved23();
    PrintAnswer(manager.Query24());
    manager.Reserved25();
}

void ShowOnceWithPlainBoxes()
{
    const CMessageBoxRobot robot;
    msg::IManager& manager = *GetMessageManager();
    PrintAnswer(manager.ShowOnceGenericDefaultOwner("suppressed", 2, "never seen", nullptr, nullptr));
    PrintAnswer(manager.ShowOnceGenericDefaultOwner("id", 2, "seen", nullptr, nullptr));
    for (const auto& box : robot.GetBoxes())
    {
        PrintLine("box " + box.caption + (box.isWarning ? " (warning): " : ": ") + box.text);
    }
}
} // namespace

int main(int count, char** arguments)
{
    if (count > 1 && arguments[1] == std::string("boxes"))
    {
        ShowOnceWithPlainBoxes();
        SetEnvironmentVariableA("ML_FAKE_HANDLER", "");
        PrintAnswer(GetMessageManager()->ShowGenericDefaultOwner(2, "switched on again", nullptr));
    }
    else
    {
        msg::IManager& manager = *GetMessageManager();
        CallMessageSlots(manager);
        CallQuestionSlots(manager);
        CallOtherSlots(manager);
    }
    PrintLine("end");
    return 0;
}
