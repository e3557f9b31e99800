#include "tools/matlib/check/CNameCheck.h"

#include "tools/matlib/Wording.h"
#include "tools/matlib/check/CWarnings.h"
#include "tools/matlib/check/Rules.h"

void CNameCheck::Check(CWarnings& warnings, const std::string& path,
                       std::span<const ParsedMaterial> materials)
{
    const std::size_t file = paths.size();
    paths.push_back(path);
    names.reserve(names.size() + materials.size());
    for (const ParsedMaterial& material : materials)
    {
        const std::string_view name = material.name;
        if (name.empty())
        {
            continue;
        }
        const auto [found, isNew] = names.emplace(name, Places{file, file, name});
        Places& places = found->second;
        if (!isNew && places.lastFile == file)
        {
            warnings.Add(
                name, rule::duplicateName,
                "The name " + Quote(name) +
                    " stands in this file already. A host that looks for it finds the material given last.",
                places.firstInLast, "This is the material before.");
        }
        if (paths[places.firstFile] != path)
        {
            warnings.Add(name, rule::duplicateName,
                         "The name " + Quote(name) + " stands in " + MakePrintable(paths[places.firstFile]) +
                             " already. A host that loads both finds the material read last.");
        }
        if (places.lastFile != file)
        {
            places.lastFile = file;
            places.firstInLast = name;
        }
    }
}
