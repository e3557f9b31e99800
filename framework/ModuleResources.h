#pragma once

#include <windows.h>

#include <string>

// The module that the current module state names: where its dialog templates, cursors and texts are. The
// host's program while no state names one.
[[nodiscard]] HINSTANCE GetModuleInstance() noexcept;

// The program that has loaded the module.
[[nodiscard]] HINSTANCE GetHostInstance() noexcept;

// A text of a module's string table, in the system's multibyte code page. False when there is none, or an
// empty one.
[[nodiscard]] bool FindStringResource(HINSTANCE module, unsigned identifier, std::string& text);
