#include "chooser/ChooserFilterSettings.h"

#include "resources/Texts.h"

ChooserFilterSettings& GetChooserFilterSettings()
{
    static ChooserFilterSettings settings;
    if (settings.typeText.empty())
    {
        settings.typeText = LoadText(MLTEXT_ALL);
    }
    return settings;
}
