#include "tools/matlib/Platform.h"

#include "tools/matlib/NearestNames.h"
#include "tools/matlib/QuantityParsing.h"

#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <io.h>
#include <memory>

PathState QueryPath(const char* path)
{
    const DWORD attributes = GetFileAttributesA(path);
    if (attributes == INVALID_FILE_ATTRIBUTES)
    {
        return PathState::missing;
    }
    return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0 ? PathState::folder : PathState::file;
}

namespace
{
std::wstring Widen(std::string_view path)
{
    const int length = static_cast<int>(path.size());
    std::wstring wide(path.size(), L'\0');
    wide.resize(
        static_cast<std::size_t>(MultiByteToWideChar(CP_ACP, 0, path.data(), length, wide.data(), length)));
    return wide;
}
} // namespace

std::string MakeUtf8Path(const std::string& path)
{
    const std::wstring wide = Widen(path);
    std::string utf8(wide.size() * 3, '\0'); // at most
    utf8.resize(static_cast<std::size_t>(
        WideCharToMultiByte(CP_UTF8, 0, wide.data(), static_cast<int>(wide.size()), utf8.data(),
                            static_cast<int>(utf8.size()), nullptr, nullptr)));
    return utf8;
}

bool IsSameFile(const char* path, const char* other)
{
    std::error_code error; // what is not there is no file
    return std::filesystem::equivalent(Widen(path), Widen(other), error);
}

void PrepareProcess()
{
    _setmode(_fileno(stdin), _O_BINARY);
    _setmode(_fileno(stdout), _O_BINARY);
    _setmode(_fileno(stderr), _O_BINARY);
    SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX);
}

bool IsWatched()
{
    DWORD mode = 0; // fails for anything but a console
    return GetConsoleMode(GetStdHandle(STD_ERROR_HANDLE), &mode) != FALSE;
}

bool CanShowColours()
{
    const HANDLE output = GetStdHandle(STD_OUTPUT_HANDLE);
    DWORD mode = 0; // fails for anything but a console
    return GetConsoleMode(output, &mode) != FALSE &&
           SetConsoleMode(output, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING) != FALSE;
}

namespace
{
struct CloseSearch
{
    using pointer = HANDLE;
    void operator()(HANDLE search) const noexcept { FindClose(search); }
};

void AddMaterialFiles(std::vector<std::string>& files, const std::string& folder)
{
    WIN32_FIND_DATAA entry{};
    const HANDLE search = FindFirstFileA((folder + "/*").c_str(), &entry);
    if (search == INVALID_HANDLE_VALUE)
    {
        return; // what cannot be entered has no files
    }
    const std::unique_ptr<HANDLE, CloseSearch> closing(search);
    do
    {
        const std::string_view name = entry.cFileName;
        const std::string path = folder + "/" + entry.cFileName;
        const bool isFolder = (entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
        const bool isLink = (entry.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
        if (isFolder && !isLink && name != "." && name != "..")
        {
            AddMaterialFiles(files, path);
        }
        else if (!isFolder && name.size() >= 4 && EqualIgnoringCase(name.substr(name.size() - 4), ".mat"))
        {
            files.push_back(path);
        }
    } while (FindNextFileA(search, &entry) != FALSE);
}
} // namespace

std::vector<std::string> FindMaterialFiles(const std::string& folder)
{
    std::vector<std::string> files;
    AddMaterialFiles(files, folder.ends_with('\\') || folder.ends_with('/')
                                ? folder.substr(0, folder.size() - 1)
                                : folder);
    std::ranges::sort(files);
    return files;
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

std::vector<std::string> ListInstalledExamples()
{
    constexpr DWORD longestPath = 32768;
    std::string folder(longestPath, '\0');
    folder.resize(GetModuleFileNameA(nullptr, folder.data(), longestPath));
    folder.resize(std::min(folder.rfind('\\'), folder.size()));
    return FindMaterialFiles(folder + "\\..\\share\\doc\\MaterialLibrary\\examples\\materials");
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

const char* DescribeMissingDialog()
{
    const HWND window =
        CreateWindowExW(0, L"STATIC", L"", WS_OVERLAPPED, 0, 0, 1, 1, nullptr, nullptr, nullptr, nullptr);
    const bool hasDisplay = window != nullptr;
    DestroyWindow(window);
    return hasDisplay ? nullptr : "the dialog could not open: there is no display";
}
