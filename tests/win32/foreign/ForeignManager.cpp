// Compiled to the object format of another C++ compiler, without any library behind it.
#include "tests/win32/foreign/ForeignManager.h"

// The destructors' slots refer to it; nothing is ever released here.
void operator delete(void*) noexcept {}

namespace
{
SlotPrinter printSlot;
CallPrinter printCall;

int Say(unsigned slot, const msg::MessageRequest* message = nullptr)
{
    printSlot(slot, message);
    return static_cast<int>(100 + slot);
}

// Tells the slot of each message by what came through it.
class CForeignManager final : public msg::CManagerAdapter
{
public:
    int Invoke(Callback callback, void* a, void* b, void* c, void* d) override
    {
        Say(0);
        return CManagerAdapter::Invoke(callback, a, b, c, d);
    }

    void Reserved17() override { Say(17); }
    bool Query18() override { return Say(18) != 0; }
    void Reserved19() override { Say(19); }
    void Reserved20() override { Say(20); }
    void Reserved21() override { Say(21); }
    void Reserved22() override { Say(22); }
    void Reserved23() override { Say(23); }
    int Query24() override { return Say(24); }
    void Reserved25() override { Say(25); }

protected:
    int OnMessage(const msg::MessageRequest& message) override
    {
        const bool isGeneric = message.type[0] == msg::genericType[0];
        return Say(1 + 4 * static_cast<unsigned>(message.kind) + (message.hasOwner ? 0 : 2) +
                       (isGeneric ? 1 : 0),
                   &message);
    }
};

class CForeignRegistrator final : public msg::IRegistrator
{
public:
    void Remember(const char* id, int) override { printCall("Remember", id); }
    void Reserved1() override { printCall("registrator slot 1", ""); }
    void Reserved2() override { printCall("registrator slot 2", ""); }
    bool IsSuppressed(const char* id) override
    {
        printCall("IsSuppressed", id);
        return id[0] == 's' && id[1] == 'u';
    }
};

CForeignManager manager;
CForeignRegistrator registrator;
} // namespace

msg::IManager* GetForeignManager(SlotPrinter print)
{
    printSlot = print;
    return &manager;
}

msg::IRegistrator* GetForeignRegistrator(CallPrinter print)
{
    printCall = print;
    return &registrator;
}
