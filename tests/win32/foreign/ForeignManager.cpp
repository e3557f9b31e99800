// Compiled to the object format of another C++ compiler, without any library behind it.
#include "tests/win32/foreign/ForeignManager.h"

#include "shared/MessageManager/IManager.h"

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

template <class... Arguments>
int Say(unsigned slot, Arguments... arguments)
{
    CLine("slot").Print(slot, arguments...);
    return static_cast<int>(100 + slot);
}

using Text = const char*;
using Window = msg::WindowHandle;

class CForeignManager final : public msg::IManager
{
public:
    int Invoke(Callback callback, void* a, void* b, void* c, void* d) override
    {
        Say(0);
        return callback(a, b, c, d);
    }

    int Show(Window owner, Text type, unsigned severity, Text text, Text caption) override
    {
        return Say(1, owner, type, severity, text, caption);
    }
    int ShowGeneric(Window owner, unsigned severity, Text text, Text caption) override
    {
        return Say(2, owner, severity, text, caption);
    }
    int ShowDefaultOwner(Text type, unsigned severity, Text text, Text caption) override
    {
        return Say(3, type, severity, text, caption);
    }
    int ShowGenericDefaultOwner(unsigned severity, Text text, Text caption) override
    {
        return Say(4, severity, text, caption);
    }

    int ShowOnce(Window owner, Text id, Text type, unsigned severity, Text text, Text caption,
                 Text check) override
    {
        return Say(5, owner, id, type, severity, text, caption, check);
    }
    int ShowOnceGeneric(Window owner, Text id, unsigned severity, Text text, Text caption,
                        Text check) override
    {
        return Say(6, owner, id, severity, text, caption, check);
    }
    int ShowOnceDefaultOwner(Text id, Text type, unsigned severity, Text text, Text caption,
                             Text check) override
    {
        return Say(7, id, type, severity, text, caption, check);
    }
    int ShowOnceGenericDefaultOwner(Text id, unsigned severity, Text text, Text caption, Text check) override
    {
        return Say(8, id, severity, text, caption, check);
    }

    int Ask(Window owner, Text type, unsigned severity, Text text, unsigned buttons, Text caption) override
    {
        return Say(9, owner, type, severity, text, buttons, caption);
    }
    int AskGeneric(Window owner, unsigned severity, Text text, unsigned buttons, Text caption) override
    {
        return Say(10, owner, severity, text, buttons, caption);
    }
    int AskDefaultOwner(Text type, unsigned severity, Text text, unsigned buttons, Text caption) override
    {
        return Say(11, type, severity, text, buttons, caption);
    }
    int AskGenericDefaultOwner(unsigned severity, Text text, unsigned buttons, Text caption) override
    {
        return Say(12, severity, text, buttons, caption);
    }

    int AskRemembered(Window owner, Text id, Text type, unsigned severity, Text text, unsigned buttons,
                      Text caption, Text check) override
    {
        return Say(13, owner, id, type, severity, text, buttons, caption, check);
    }
    int AskRememberedGeneric(Window owner, Text id, unsigned severity, Text text, unsigned buttons,
                             Text caption, Text check) override
    {
        return Say(14, owner, id, severity, text, buttons, caption, check);
    }
    int AskRememberedDefaultOwner(Text id, Text type, unsigned severity, Text text, unsigned buttons,
                                  Text caption, Text check) override
    {
        return Say(15, id, type, severity, text, buttons, caption, check);
    }
    int AskRememberedGenericDefaultOwner(Text id, unsigned severity, Text text, unsigned buttons,
                                         Text caption, Text check) override
    {
        return Say(16, id, severity, text, buttons, caption, check);
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
