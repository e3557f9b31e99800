#pragma once

#include <windows.h>

// Where users left a window: its normal position and size and whether it was maximised, in the profile's
// section of that name.

void SaveWindowPlacement(HWND window, const char* section);

// Moves the window to where it was left, at least onto the work area of the nearest monitor. Settings that
// are missing or malformed leave its position or size.
void RestoreWindowPlacement(HWND window, const char* section);
