#pragma once

// The section of the user's settings that is the chooser's.
inline constexpr const char* chooserSection = "SelectMaterial";
