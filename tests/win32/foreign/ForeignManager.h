#pragma once

namespace msg
{
class IManager;
class IRegistrator;
} // namespace msg

using PrintFunction = void (*)(const char* line);

extern "C"
{
    // A message manager with the other C++ object format. Every slot prints its number and what it got;
    // messages are answered with 100 and the number of the slot.
    msg::IManager* GetForeignManager(PrintFunction print);

    // A registrator with the other C++ object format. The message "suppressed" is not to be shown again.
    msg::IRegistrator* GetForeignRegistrator(PrintFunction print);
}
