#include "entry/win32/CMaterialLibraryApp.h"

#include "chooser/win32/RunChooser.h"
#include "model/CFakeMaterialLib.h"
#include "shared/Misc_String/CodePage.h"
#include "shared/ModuleState/CModuleState.h"

bool CMaterialLibraryApp::Initialise(HINSTANCE instance)
{
    CModuleState& state = OwnModuleState();
    state.instance = instance;
    state.applicationName = "MaterialLibrary";
    state.registryKey = "Corvane";
    SetLeadByteTest([](unsigned char byte) { return IsDBCSLeadByte(byte) != FALSE; });
    CFakeMaterialLib::SetChooser(&RunChooser);
    return true;
}
