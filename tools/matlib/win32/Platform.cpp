#include "tools/matlib/Platform.h"

#include "tools/matlib/QuantityParsing.h"

#include <windows.h>

#include <cstdio>
#include <cstdlib>
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

std::string FindProgram(const char* name)
{
    const char* const folders = std::getenv("PATH");
    for (const std::string& folder : SplitPaths({folders != nullptr ? folders : ""}))
    {
        const std::string path = folder + "\\" + name + ".exe";
        if (folder.size() > 2 && folder[1] == ':' && QueryPath(path.c_str()) == PathState::file)
        {
            return path;
        }
    }
    return {};
}

int RunProgram(const std::string& path, const std::vector<std::string>& arguments)
{
    std::string line = "\"" + path + "\"";
    for (const std::string& argument : arguments)
    {
        line += " \"" + argument + "\""; // a file's name holds no quotation marks
    }
    STARTUPINFOA startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    if (CreateProcessA(path.c_str(), line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup,
                       &process) == FALSE)
    {
        return -1;
    }
    DWORD exitCode = 0;
    WaitForSingleObject(process.hProcess, INFINITE);
    GetExitCodeProcess(process.hProcess, &exitCode);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return static_cast<int>(exitCode);
}

bool HasLoadableLibrary()
{
    return true;
}

bool HasDialog()
{
    return true;
}
