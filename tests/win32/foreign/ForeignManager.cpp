// Compiled to the object format of another C++ compiler, without any library behind it.
#include "tests/win32/foreign/ForeignManager.h"

#include "shared/MessageManager/IManager.h"

// The destructors' slots refer to it; nothing is ever released here.
void operator delete(void*) noexcept {}

namespace
{
PrintFunction printLine;

// One line of words. A null text is "null".
class CLine
{
public:
    explicit CLine(const char* begin) { Add(begin); }

    CLine& Text(const char* name, const char* text)
    {
        Add(" ");
        Add(name);
        Add("=");
        Add(text != nullptr ? text : "null");
        return *this;
    }

    CLine& Number(const char* name, unsigned number)
    {
        char digits[11] = {};
        int first = 10;
        do
        {
            digits[--first] = static_cast<char>('0' + number % 10);
            number /= 10;
        } while (number != 0);
        return Text(name, digits + first);
    }

    CLine& Owner(msg::WindowHandle owner)
    {
        return Number("owner", static_cast<unsigned>(reinterpret_cast<unsigned long long>(owner)));
    }

    void Print() { printLine(line); }

    int Answer(int slot)
    {
        Print();
        return 100 + slot;
    }

private:
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

class CForeignManager final : public msg::IManager
{
public:
    int Invoke(Callback callback, void* a, void* b, void* c, void* d) override
    {
        CLine("slot 0").Print();
        return callback(a, b, c, d);
    }

    int Show(msg::WindowHandle owner, const char* type, unsigned severity, const char* text,
             const char* caption) override
    {
        return Message("slot 1", severity, text, caption).Owner(owner).Text("type", type).Answer(1);
    }
    int ShowGeneric(msg::WindowHandle owner, unsigned severity, const char* text,
                    const char* caption) override
    {
        return Message("slot 2", severity, text, caption).Owner(owner).Answer(2);
    }
    int ShowDefaultOwner(const char* type, unsigned severity, const char* text, const char* caption) override
    {
        return Message("slot 3", severity, text, caption).Text("type", type).Answer(3);
    }
    int ShowGenericDefaultOwner(unsigned severity, const char* text, const char* caption) override
    {
        return Message("slot 4", severity, text, caption).Answer(4);
    }

    int ShowOnce(msg::WindowHandle owner, const char* id, const char* type, unsigned severity,
                 const char* text, const char* caption, const char* checkText) override
    {
        return Once("slot 5", id, severity, text, caption, checkText)
            .Owner(owner)
            .Text("type", type)
            .Answer(5);
    }
    int ShowOnceGeneric(msg::WindowHandle owner, const char* id, unsigned severity, const char* text,
                        const char* caption, const char* checkText) override
    {
        return Once("slot 6", id, severity, text, caption, checkText).Owner(owner).Answer(6);
    }
    int ShowOnceDefaultOwner(const char* id, const char* type, unsigned severity, const char* text,
                             const char* caption, const char* checkText) override
    {
        return Once("slot 7", id, severity, text, caption, checkText).Text("type", type).Answer(7);
    }
    int ShowOnceGenericDefaultOwner(const char* id, unsigned severity, const char* text, const char* caption,
                                    const char* checkText) override
    {
        return Once("slot 8", id, severity, text, caption, checkText).Answer(8);
    }

    int Ask(msg::WindowHandle owner, const char* type, unsigned severity, const char* text, unsigned buttons,
            const char* caption) override
    {
        return Message("slot 9", severity, text, caption)
            .Owner(owner)
            .Text("type", type)
            .Number("buttons", buttons)
            .Answer(9);
    }
    int AskGeneric(msg::WindowHandle owner, unsigned severity, const char* text, unsigned buttons,
                   const char* caption) override
    {
        return Message("slot 10", severity, text, caption).Owner(owner).Number("buttons", buttons).Answer(10);
    }
    int AskDefaultOwner(const char* type, unsigned severity, const char* text, unsigned buttons,
                        const char* caption) override
    {
        return Message("slot 11", severity, text, caption)
            .Text("type", type)
            .Number("buttons", buttons)
            .Answer(11);
    }
    int AskGenericDefaultOwner(unsigned severity, const char* text, unsigned buttons,
                               const char* caption) override
    {
        return Message("slot 12", severity, text, caption).Number("buttons", buttons).Answer(12);
    }

    int AskRemembered(msg::WindowHandle owner, const char* id, const char* type, unsigned severity,
                      const char* text, unsigned buttons, const char* caption, const char* checkText) override
    {
        return Once("slot 13", id, severity, text, caption, checkText)
            .Owner(owner)
            .Text("type", type)
            .Number("buttons", buttons)
            .Answer(13);
    }
    int AskRememberedGeneric(msg::WindowHandle owner, const char* id, unsigned severity, const char* text,
                             unsigned buttons, const char* caption, const char* checkText) override
    {
        return Once("slot 14", id, severity, text, caption, checkText)
            .Owner(owner)
            .Number("buttons", buttons)
            .Answer(14);
    }
    int AskRememberedDefaultOwner(const char* id, const char* type, unsigned severity, const char* text,
                                  unsigned buttons, const char* caption, const char* checkText) override
    {
        return Once("slot 15", id, severity, text, caption, checkText)
            .Text("type", type)
            .Number("buttons", buttons)
            .Answer(15);
    }
    int AskRememberedGenericDefaultOwner(const char* id, unsigned severity, const char* text,
                                         unsigned buttons, const char* caption,
                                         const char* checkText) override
    {
        return Once("slot 16", id, severity, text, caption, checkText).Number("buttons", buttons).Answer(16);
    }

    void Reserved17() override { CLine("slot 17").Print(); }
    bool Query18() override { return CLine("slot 18").Answer(18) != 0; }
    void Reserved19() override { CLine("slot 19").Print(); }
    void Reserved20() override { CLine("slot 20").Print(); }
    void Reserved21() override { CLine("slot 21").Print(); }
    void Reserved22() override { CLine("slot 22").Print(); }
    void Reserved23() override { CLine("slot 23").Print(); }
    int Query24() override { return CLine("slot 24").Answer(24); }
    void Reserved25() override { CLine("slot 25").Print(); }

private:
    static CLine Message(const char* slot, unsigned severity, const char* text, const char* caption)
    {
        return CLine(slot).Number("severity", severity).Text("text", text).Text("caption", caption);
    }

    static CLine Once(const char* slot, const char* id, unsigned severity, const char* text,
                      const char* caption, const char* checkText)
    {
        return Message(slot, severity, text, caption).Text("id", id).Text("check", checkText);
    }
};

class CForeignRegistrator final : public msg::IRegistrator
{
public:
    void Remember(const char* id, int answer) override
    {
        CLine("Remember").Text("id", id).Number("answer", static_cast<unsigned>(answer)).Print();
    }
    void Reserved1() override { CLine("registrator slot 1").Print(); }
    void Reserved2() override { CLine("registrator slot 2").Print(); }
    bool IsSuppressed(const char* id) override
    {
        CLine("IsSuppressed").Text("id", id).Print();
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
