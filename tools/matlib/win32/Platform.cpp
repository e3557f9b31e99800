#include "tools/matlib/Platform.h"

#include <windows.h>

#include <cstdio>
#include <fcntl.h>
#include <io.h>

PathState QueryPath(const char* path)
{
    const DWORD attributes = GetFileAttributesA(path);
    if (attributes == INVALID_FILE_ATTRIBUTES)
    {
        return PathState::missing;
    }
    return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0 ? PathState::folder : PathState::file;
}

void PrepareProcess()
{
    _setmode(_fileno(stdout), _O_BINARY);
    _setmode(_fileno(stderr), _O_BINARY);
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX);
}

bool IsWatched()
{
    DWORD mode = 0; // fails for anything but a console
    return GetConsoleMode(GetStdHandle(STD_ERROR_HANDLE), &mode) != FALSE;
}

bool HasLoadableLibrary()
{
    return true;
}

bool HasDialog()
{
    return true;
}
