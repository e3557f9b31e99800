#pragma once

#include <windows.h>

// The application object of the module: there is one, made when the host loads the module.
class CMaterialLibraryApp
{
public:
    // Fills the module's own state: the instance handle for resources, the application's name and the
    // registry key of its settings. Also tells the string helpers about the system's code page. Returns
    // whether the module can be used.
    [[nodiscard]] static bool Initialise(HINSTANCE instance);
};
