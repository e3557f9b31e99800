#pragma once

class IMatLib;
class IMaterial;

// Opens the dialog "Select Material Models" and returns the material that is assigned when the user ends it
// with OK; null when none is, when the user cancels and when the dialog cannot be made.
[[nodiscard]] IMaterial* RunChooser(IMatLib& library, IMaterial* current, int materialKind);
