#pragma once

#include "chart/PaintChart.h"
#include "framework/CHandle.h"

// A chart in the forms that other programs take from the clipboard, with labels in that font. The scene has
// been laid out for the font and its client area begins at (0, 0).

// Null where the system has no memory for it.
[[nodiscard]] CMetafile DrawMetafile(const ChartScene& scene, HFONT font);

// A device-independent bitmap: its header and pixels. Null where the system has no memory for it.
[[nodiscard]] CGlobalMemory DrawBitmap(const ChartScene& scene, HFONT font);
