// Calls the message manager of a program that is linked with it: it shows plain boxes while the handler
// module is switched off, then calls every slot of the module's manager.
#include "shared/MessageManager/MessageManager.h"
#include "tests/win32/CMessageBoxRobot.h"
#include "tests/win32/Console.h"

#include <initializer_list>
#include <string>

namespace
{
msg::WindowHandle const owner = reinterpret_cast<void*>(77); // no window, and never asked

int Add(void* a, void* b, void* c, void* d)
{
    return *static_cast<int*>(a) + *static_cast<int*>(b) + *static_cast<int*>(c) + *static_cast<int*>(d);
}

void PrintAnswers(std::initializer_list<int> answers)
{
    std::string line = "answers";
    for (const int answer : answers)
    {
        line += " " + std::to_string(answer);
    }
    PrintLine(line);
}

int CallReservedSlots(msg::IManager& manager)
{
    manager.Reserved17();
    const int answer = manager.Query18() ? 1 : 0;
    manager.Reserved19();
    manager.Reserved20();
    manager.Reserved21();
    manager.Reserved22();
    manager.Reserved23();
    return answer;
}

void CallEverySlot(msg::IManager& manager)
{
    int numbers[] = {1, 20, 300, 4000};
    PrintAnswers(
        {manager.Show(owner, "t", 1, "text", "cap"), manager.ShowGeneric(owner, 2, "text", "cap"),
         manager.ShowDefaultOwner("t", 3, "text", "cap"), manager.ShowGenericDefaultOwner(4, "text", nullptr),
         manager.ShowOnce(owner, "id", "t", 5, "text", "cap", "check"),
         manager.ShowOnceGeneric(owner, "suppressed", 6, "text", "cap", nullptr),
         manager.ShowOnceDefaultOwner("id", "t", 7, "text", "cap", "check"),
         manager.ShowOnceGenericDefaultOwner("suppressed", 8, "text", "cap", "check"),
         manager.Ask(owner, "t", 1, "text", 4, "cap"), manager.AskGeneric(owner, 2, "text", 5, "cap"),
         manager.AskDefaultOwner("t", 3, "text", 6, "cap"),
         manager.AskGenericDefaultOwner(4, "text", 7, "cap"),
         manager.AskRemembered(owner, "id", "t", 5, "text", 8, "cap", "check"),
         manager.AskRememberedGeneric(owner, "id", 6, "text", 9, "cap", "check"),
         manager.AskRememberedDefaultOwner("id", "t", 7, "text", 10, "cap", "check"),
         manager.AskRememberedGenericDefaultOwner("id", 8, "text", 11, "cap", "check"),
         manager.Invoke(Add, &numbers[0], &numbers[1], &numbers[2], &numbers[3]), CallReservedSlots(manager),
         manager.Query24()});
    manager.Reserved25();
}

void ShowOnceWithPlainBoxes()
{
    const CMessageBoxRobot robot;
    msg::IManager& manager = *GetMessageManager();
    PrintAnswers({manager.ShowOnceGenericDefaultOwner("suppressed", 2, "never seen", nullptr, nullptr),
                  manager.ShowOnceGenericDefaultOwner("id", 2, "seen", nullptr, nullptr)});
    for (const std::string& box : robot.GetBoxes())
    {
        PrintLine(box);
    }
}
} // namespace

int main()
{
    SetEnvironmentVariableA("ML_FAKE_HANDLER", "disabled");
    ShowOnceWithPlainBoxes();
    SetEnvironmentVariableA("ML_FAKE_HANDLER", nullptr);
    CallEverySlot(*GetMessageManager());
    PrintLine("end");
    return 0;
}
