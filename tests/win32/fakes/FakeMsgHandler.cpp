// A message handler that says on the standard output what it is asked for. Variants of it lack an entry
// point each (CMakeLists.txt). The environment variable ML_FAKE_HANDLER may hold the words "disabled",
// "nomanager" and "noregistrator".
#include "MaterialLibrary/IManager.h"
#include "tests/win32/Console.h"
#include "tests/win32/foreign/ForeignManager.h"

#include <string_view>

namespace
{
bool IsSetUp(std::string_view word)
{
    char words[64] = {};
    GetEnvironmentVariableA("ML_FAKE_HANDLER", words, sizeof words);
    return std::string_view(words).find(word) != std::string_view::npos;
}

void Print(const char* line)
{
    PrintLine(line);
}
} // namespace

extern "C"
{
    msg::IManager* GetMsgHandlerManager()
    {
        PrintLine("GetMsgHandlerManager");
        return IsSetUp("nomanager") ? nullptr : GetForeignManager(Print);
    }

    bool IsMsgHandlerEnabled()
    {
        return !IsSetUp("disabled");
    }

    void SetMsgHandlerEnabled(bool enabled)
    {
        SetEnvironmentVariableA("ML_FAKE_HANDLER", enabled ? "" : "disabled");
    }

    void SetMsgHandlerRegistrator(msg::IRegistrator*)
    {
        PrintLine("SetMsgHandlerRegistrator");
    }

    msg::IRegistrator* GetMsgHandlerRegistrator()
    {
        return IsSetUp("noregistrator") ? nullptr : GetForeignRegistrator(Print);
    }
}
