#pragma once

#include "MaterialLibrary/MLTypes.h"
#include "chooser/CFilterString.h"

#include <string>

// What the user narrows the list of materials by.
struct ChooserFilterSettings
{
    static constexpr int allTechnologies = MLTECHNOLOGY_UNKNOWN;

    std::string typeText; // the text "<All>" lets every type pass
    int technology = allTechnologies;
    double thicknessMinimum = 0.0; // metres
    double thicknessMaximum = 0.01;
    CFilterString materialFilter;
    CFilterString libraryFilter;
};

// The settings of all choosers; they stay from one opening to the next. The type is "<All>" until one is
// chosen.
[[nodiscard]] ChooserFilterSettings& GetChooserFilterSettings();
