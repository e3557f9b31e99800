#pragma once

#include "shared/CtrlAutoMover/WindowFrame.h"

#include <windows.h>

// Where users left a window: its normal position and size and whether it was maximised, in the profile's
// section of that name.

void SaveWindowPlacement(HWND window, const char* section);

// Moves the window to where it was left, at least onto the work area of the nearest monitor. Settings that
// are missing or malformed leave its position or size.
void RestoreWindowPlacement(HWND window, const char* section);

// The frame that a window has while it is neither maximised nor minimised nor snapped to an edge.
[[nodiscard]] WindowFrame GetNormalFrame(HWND window);

// Whether the system shows a window that is not maximised in another frame than its normal one.
[[nodiscard]] bool IsSnapped(HWND window);

// A maximised window stays maximised and takes that frame when it is restored.
void SetNormalFrame(HWND window, const WindowFrame& frame);

// What the monitor nearest to the frame has for windows.
[[nodiscard]] WindowFrame GetWorkArea(const WindowFrame& frame);
