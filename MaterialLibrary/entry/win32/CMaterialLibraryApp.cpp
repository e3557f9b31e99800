#include "chooser/win32/RunChooser.h"
#include "framework/CModalScope.h"
#include "framework/CModuleState.h"
#include "model/CFakeMaterialLib.h"
#include "shared/MessageManager/FatalError.h"
#include "shared/Misc_String/CodePage.h"

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

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, void* /*reserved*/)
{
    return reason != DLL_PROCESS_ATTACH || CMaterialLibraryApp::Initialise(instance) ? TRUE : FALSE;
}
