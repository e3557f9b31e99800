#pragma once

#include "MaterialLibrary/IManager.h"

// The manager through which every message of the module is shown: that of the host's handler module while
// it is loaded and enabled (asked at every call), otherwise the library's own. Never null, never released.
[[nodiscard]] msg::IManager* GetMessageManager();

// Shows a message of the generic type with the severity "warning" and an OK button, of that window or of one
// that the manager chooses. What a host's handler throws stays here, apart from std::bad_alloc.
void ShowWarning(const char* text);
void ShowWarning(msg::WindowHandle owner, const char* text);
