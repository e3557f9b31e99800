#include "tools/matlib/InputFiles.h"

#include "tools/matlib/CFailure.h"
#include "tools/matlib/Platform.h"

#include <algorithm>
#include <iterator>

namespace
{
bool IsStream(const std::string& path)
{
    return path == "-";
}
} // namespace

std::vector<std::string> FindFiles(const std::vector<std::string>& paths)
{
    std::vector<std::string> files;
    for (const std::string& path : paths)
    {
        const bool isFolder = !IsStream(path) && QueryPath(path.c_str()) == PathState::folder;
        std::vector<std::string> found = isFolder ? FindMaterialFiles(path) : std::vector{path};
        if (found.empty())
        {
            throw CFailure("there is no .mat file in " + path);
        }
        std::ranges::move(found, std::back_inserter(files));
    }
    return files;
}

std::string NameInput(const std::string& path)
{
    return IsStream(path) ? "<stdin>" : path;
}

FileText ReadInput(const std::string& path)
{
    if (IsStream(path))
    {
        return ReadText(stdin, NameInput(path));
    }
    const char* const unreadable = DescribeUnreadable(QueryPath(path.c_str()));
    return unreadable != nullptr ? FileText{{}, unreadable} : ReadText(path);
}
