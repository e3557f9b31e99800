#include "entry/win32/CMaterialLibraryApp.h"

#include "chooser/win32/RunChooser.h"
#include "framework/CModalScope.h"
#include "framework/CModuleState.h"
#include "model/CFakeMaterialLib.h"
#include "shared/MessageManager/FatalError.h"
#include "shared/Misc_String/CodePage.h"

bool CMaterialLibraryApp::Initialise(HINSTANCE instance)
{
    CModuleState& state = OwnModuleState();
    state.instance = instance;
    state.applicationName = "MaterialLibrary";
    state.registryKey = "Corvane";
    SetLeadByteTest([](unsigned char byte) { return IsDBCSLeadByte(byte) != FALSE; });
    CModalScope::SetUncaughtHandler([] { FatalError("..\\framework\\CModalScope.cpp", 32); });
    CFakeMaterialLib::SetChooser(&RunChooser);
    return true;
}
