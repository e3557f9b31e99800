#include "shared/MessageManager/ISystemMessageBox.h"

#include <utility>

namespace
{
msg::ISystemMessageBox* replacement = nullptr;
}

msg::ISystemMessageBox& msg::GetSystemMessageBox()
{
    return replacement != nullptr ? *replacement : GetPlatformMessageBox();
}

msg::ISystemMessageBox* msg::ReplaceSystemMessageBox(ISystemMessageBox* box)
{
    return std::exchange(replacement, box);
}
