#include "tools/matlib/Platform.h"

#include <filesystem>
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

void PrepareProcess() {}

bool IsWatched()
{
    return isatty(STDERR_FILENO) != 0;
}

bool HasLoadableLibrary()
{
    return false;
}

bool HasDialog()
{
    return false;
}
