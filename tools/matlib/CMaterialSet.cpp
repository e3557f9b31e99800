#include "tools/matlib/CMaterialSet.h"

#include "MaterialLibrary/IMaterial.h"
#include "tools/matlib/CFailure.h"
#include "tools/matlib/Console.h"
#include "tools/matlib/LibraryMessages.h"
#include "tools/matlib/NearestNames.h"
#include "tools/matlib/Platform.h"
#include "tools/matlib/Wording.h"

#include <algorithm>

LibraryPtr MakeLibrary(ILibraryHost& host, const std::vector<std::string>& files)
{
    std::string list;
    for (const std::string& file : files)
    {
        list += file + ";";
    }
    return {host.Create(files.empty() ? nullptr : list.c_str()), FreeLibrary{&host}};
}

CMaterialSet::CMaterialSet(ILibraryHost& host, const std::vector<std::string>& files)
    : library(MakeLibrary(host, files))
{
    ReportFiles(host, files);
}

void CMaterialSet::ReportFiles(ILibraryHost& host, const std::vector<std::string>& files)
{
    for (const std::string& file : files)
    {
        if (const char* const reason = DescribeUnreadable(QueryPath(file.c_str())))
        {
            PrintProblem(file + ": " + reason);
            allFilesGood = false;
        }
    }
    for (const std::string& message : host.TakeMessages())
    {
        PrintProblem(message);
        const auto isAbout = [&](const std::string& file)
        { return FindFileProblem(message, file).has_value(); };
        allFilesGood = allFilesGood && std::ranges::none_of(files, isAbout);
    }
}

IMaterial& CMaterialSet::Find(const std::string& name) const
{
    if (IMaterial* const material = library->FindMaterial(name.c_str()))
    {
        return *material;
    }
    std::vector<std::string> names;
    for (const IMaterial* material : ListAll())
    {
        names.emplace_back(material->GetName());
    }
    std::string text = "there is no material named " + Quote(name);
    std::string separator = "; did you mean ";
    for (const std::string& nearest : FindNearestNames(name, names))
    {
        text += separator + Quote(nearest);
        separator = " or ";
    }
    throw CFailure(separator == " or " ? text + "?" : text);
}

std::vector<IMaterial*> CMaterialSet::ListAll() const
{
    std::vector<IMaterial*> materials;
    const int count = library->GetMaterialCount();
    materials.reserve(static_cast<std::size_t>(count));
    for (int index = 0; index < count; ++index)
    {
        materials.push_back(library->GetMaterial(index));
    }
    return materials;
}

int CMaterialSet::GetExitCode() const
{
    return allFilesGood ? exitFine : exitFailed;
}
