// Compiled to the object format of another C++ compiler, without any library behind it.
#include "tests/win32/foreign/ForeignManager.h"

#include "MaterialLibrary/CManagerAdapter.h"

// The destructors' slots refer to it; nothing is ever released here.
void operator delete(void*) noexcept {}

namespace
{
PrintFunction printLine;

// One line of words. A null text is "null", a window its number.
class CLine
{
public:
    explicit CLine(const char* begin) { Add(begin); }

    template <class... Arguments>
    void Print(Arguments... arguments)
    {
        (Word(arguments), ...);
        printLine(line);
    }

private:
    void Word(const char* text)
    {
        Add(" ");
        Add(text != nullptr ? text : "null");
    }

    void Word(unsigned number)
    {
        char digits[11] = {};
        int first = 10;
        do
        {
            digits[--first] = static_cast<char>('0' + number % 10);
            number /= 10;
        } while (number != 0);
        Word(digits + first);
    }

    void Word(msg::WindowHandle owner)
    {
        Word(static_cast<unsigned>(reinterpret_cast<unsigned long long>(owner)));
    }

    void Add(const char* text)
    {
        while (*text != '\0' && length + 1 < sizeof line)
        {
            line[length++] = *text++;
        }
        line[length] = '\0';
    }

    char line[512] = {};
    unsigned length = 0;
};

using Text = const char*;

// Prints each message with the number of its slot, which what came through it tells.
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
        const unsigned slot =
            1 + 4 * static_cast<unsigned>(message.kind) + (message.hasOwner ? 0 : 2) + (isGeneric ? 1 : 0);
        return Say(slot, message.owner, message.id, message.type, message.severity, message.text,
                   message.buttons, message.caption, message.checkText);
    }

private:
    template <class... Arguments>
    static int Say(unsigned slot, Arguments... arguments)
    {
        CLine("slot").Print(slot, arguments...);
        return static_cast<int>(100 + slot);
    }
};

class CForeignRegistrator final : public msg::IRegistrator
{
public:
    void Remember(Text id, int answer) override
    {
        CLine("Remember").Print(id, static_cast<unsigned>(answer));
    }
    void Reserved1() override { CLine("registrator slot 1").Print(); }
    void Reserved2() override { CLine("registrator slot 2").Print(); }
    bool IsSuppressed(Text id) override
    {
        CLine("IsSuppressed").Print(id);
        return id[0] == 's' && id[1] == 'u';
    }
};

CForeignManager manager;
CForeignRegistrator registrator;
} // namespace

msg::IManager* GetForeignManager(PrintFunction print)
{
    printLine = print;
    return &manager;
}

msg::IRegistrator* GetForeignRegistrator(PrintFunction print)
{
    printLine = print;
    return &registrator;
}
