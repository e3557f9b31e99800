#pragma once

#include "MaterialLibrary/CManagerAdapter.h"

// Shows the library's messages in the host's own way: what only tells goes to a log file, what asks is shown
// in a box, and an answer that the user wants remembered is not asked for again.
class CLoggingManager final : public msg::CManagerAdapter
{
protected:
    int OnMessage(const msg::MessageRequest& message) override;
};
