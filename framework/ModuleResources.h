#pragma once

#include <windows.h>

#include <string>

// The module that this code is linked into: where its dialog templates, cursors and texts are.
[[nodiscard]] HINSTANCE GetModuleInstance() noexcept;

// The text of a string table, in the system's multibyte code page: the module's, or else the host's; empty
// when neither has it.
[[nodiscard]] std::string LoadStringResource(unsigned identifier);
