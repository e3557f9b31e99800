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

// The run-time library is linked in and gives back neither its thread storage nor all of its memory, so each
// copy of the module that a host loaded after unloading another would cost some.
static void StayLoaded(HINSTANCE instance)
{
    HMODULE pinned = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_PIN | GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS,
                       reinterpret_cast<LPCWSTR>(instance), &pinned);
}

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, void* /*reserved*/)
{
    if (reason != DLL_PROCESS_ATTACH)
    {
        return TRUE;
    }
    StayLoaded(instance);
    return CMaterialLibraryApp::Initialise(instance) ? TRUE : FALSE;
}
