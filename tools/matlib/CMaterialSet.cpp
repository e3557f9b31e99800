#include "tools/matlib/CMaterialSet.h"

#include "MaterialLibrary/IMaterial.h"
#include "tools/matlib/CFailure.h"
#include "tools/matlib/Console.h"
#include "tools/matlib/LibraryMessages.h"
#include "tools/matlib/NearestNames.h"
#include "tools/matlib/Platform.h"
#include "tools/matlib/QuantityParsing.h"
#include "tools/matlib/Wording.h"

#include <algorithm>
#include <cstdlib>

LibraryPtr MakeLibrary(ILibraryHost& host, const std::vector<std::string>& files)
{
    std::string list;
    for (const std::string& file : files)
    {
        list += file + ";";
    }
    return {host.Create(files.empty() ? nullptr : list.c_str()), FreeLibrary{&host}};
}

namespace
{
// The files of a command that names none.
std::vector<std::string> FindDefaultFiles()
{
    const char* const variable = std::getenv("MATLIB_PATH");
    const std::vector<std::string> named = SplitPaths({variable != nullptr ? variable : ""});
    return named.empty() ? ListInstalledExamples() : named;
}

bool IsRoughness(MLTABLEKIND property)
{
    return property == MLTABLE_ROUGHNESS_TOP || property == MLTABLE_ROUGHNESS_BOTTOM;
}

bool AsksForMetals(const Options& options)
{
    switch (options.command)
    {
    case Command::list:
        return options.filter.kind == MLMATERIAL_METAL;
    case Command::choose:
        return options.materialKind == MLMATERIAL_METAL;
    case Command::value:
        return IsRoughness(options.property);
    default:
        return !options.plottedProperties.empty() &&
               std::ranges::all_of(options.plottedProperties, IsRoughness);
    }
}
} // namespace

CMaterialSet::CMaterialSet(ILibraryHost& host, const Options& options)
    : files(options.libraryFiles.empty() ? FindDefaultFiles() : options.libraryFiles),
      library(MakeLibrary(host, files))
{
    ReportFiles(host, options);
}

void CMaterialSet::ReportFiles(ILibraryHost& host, const Options& options)
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
        if (IsOfInterest(message, options))
        {
            PrintProblem(message);
        }
        const auto isAbout = [&](const std::string& file)
        { return FindFileProblem(message, file).has_value(); };
        allFilesGood = allFilesGood && std::ranges::none_of(files, isAbout);
    }
}

// That there are no dielectrics is no news to those who have metals or want them.
bool CMaterialSet::IsOfInterest(const std::string& message, const Options& options) const
{
    const auto isMetal = [](const IMaterial* material) { return material->GetKind() == MLMATERIAL_METAL; };
    return message != GetLibraryText(MLTEXT_NO_DIELECTRIC) ||
           (!AsksForMetals(options) && std::ranges::none_of(ListAll(), isMetal));
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

std::vector<IMaterial*> CMaterialSet::Select(const Options& options) const
{
    std::vector<IMaterial*> materials;
    if (options.allMaterials)
    {
        materials = ListAll();
        return materials.empty() ? throw CFailure("there are no materials") : materials;
    }
    for (const std::string& name : options.materials)
    {
        materials.push_back(&Find(name));
    }
    return materials;
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
