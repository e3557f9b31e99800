#include "entry/win32/CMaterialLibraryApp.h"

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, void* /*reserved*/)
{
    return reason != DLL_PROCESS_ATTACH || CMaterialLibraryApp::Initialise(instance) ? TRUE : FALSE;
}
