#include "shared/MessageManager/FatalError.h"

#include "shared/MessageManager/ISystemMessageBox.h"

#include <cstdio>
#include <cstdlib>

void FatalError(const char* file, unsigned line)
{
    char text[512];
    std::snprintf(text, sizeof text, "Line:%u,   File:%s   File date:%s", line, file, ML_BUILD_DATE);
    msg::GetSystemMessageBox().Show(nullptr, text, "FATAL ERROR", msg::boxIconStop);
    std::_Exit(1); // no destructor runs over what is broken
}
