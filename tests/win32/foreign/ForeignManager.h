#pragma once

#include "MaterialLibrary/CManagerAdapter.h"

using SlotPrinter = void (*)(unsigned slot, const msg::MessageRequest* message);
using CallPrinter = void (*)(const char* operation, const char* id);

extern "C"
{
    // A message manager with the other C++ object format. Every slot prints its number and the message that
    // came through it; messages are answered with 100 and the number of the slot.
    msg::IManager* GetForeignManager(SlotPrinter print);

    // A registrator with the other C++ object format. The message "suppressed" is not to be shown again.
    msg::IRegistrator* GetForeignRegistrator(CallPrinter print);
}
