#include "tools/matlib/Platform.h"

#include "tools/matlib/NearestNames.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <spawn.h>
#include <string_view>
#include <sys/wait.h>
#include <unistd.h>

PathState QueryPath(const char* path)
{
    std::error_code error;
    const auto status = std::filesystem::status(path, error);
    if (!std::filesystem::exists(status))
    {
        return PathState::missing;
    }
    return std::filesystem::is_directory(status) ? PathState::folder : PathState::file;
}

std::string MakeUtf8Path(const std::string& path)
{
    return path; // any bytes
}

bool IsSameFile(const char* path, const char* other)
{
    std::error_code error; // what is not there is no file
    return std::filesystem::equivalent(path, other, error);
}

void PrepareProcess() {}

bool IsWatched()
{
    return isatty(STDERR_FILENO) != 0;
}

bool CanShowColours()
{
    const char* const terminal = std::getenv("TERM");
    return isatty(STDOUT_FILENO) != 0 && terminal != nullptr && std::string_view(terminal) != "dumb";
}

std::vector<std::string> FindMaterialFiles(const std::string& folder)
{
    namespace fs = std::filesystem;
    std::vector<std::string> files;
    std::error_code error; // what cannot be entered has no files
    for (fs::recursive_directory_iterator at(folder, fs::directory_options::skip_permission_denied, error),
         end;
         !error && at != end; at.increment(error))
    {
        if (EqualIgnoringCase(at->path().extension().string(), ".mat") && !at->is_directory(error))
        {
            files.push_back(at->path().string());
        }
    }
    std::ranges::sort(files);
    return files;
}

std::string FindProgram(const char* name)
{
    const char* const variable = std::getenv("PATH");
    std::string_view folders = variable != nullptr ? variable : "";
    while (!folders.empty())
    {
        const std::string_view folder = folders.substr(0, folders.find(':'));
        folders.remove_prefix(std::min(folder.size() + 1, folders.size()));
        std::string path = std::string(folder) + "/" + name;
        if (folder.starts_with('/') && QueryPath(path.c_str()) == PathState::file &&
            access(path.c_str(), X_OK) == 0)
        {
            return path;
        }
    }
    return {};
}

std::vector<std::string> ListInstalledExamples()
{
    namespace fs = std::filesystem;
    std::error_code error;
    const fs::path program = fs::read_symlink("/proc/self/exe", error);
    return FindMaterialFiles(
        (program.parent_path().parent_path() / "share/doc/matlib/examples/materials").string());
}

int RunProgram(const std::string& path, const std::vector<std::string>& arguments)
{
    std::vector<std::string> texts = {path};
    texts.insert(texts.end(), arguments.begin(), arguments.end());
    std::vector<char*> pointers;
    pointers.reserve(texts.size() + 1);
    for (std::string& text : texts)
    {
        pointers.push_back(text.data());
    }
    pointers.push_back(nullptr);
    pid_t process = 0;
    int status = 0;
    if (posix_spawn(&process, path.c_str(), nullptr, nullptr, pointers.data(), environ) != 0 ||
        waitpid(process, &status, 0) != process)
    {
        return -1;
    }
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

bool HasLoadableLibrary()
{
    return false;
}

const char* DescribeMissingDialog()
{
    return "the dialog needs the Windows build; under Wine, on a desktop: "
           "scripts/on-display.sh --desktop cmake/wine-run.sh build/windows/bin/matlib.exe choose";
}
