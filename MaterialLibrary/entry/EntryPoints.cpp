#include "MaterialLibrary/MaterialLibrary.h"
#include "entry/FileQuery.h"
#include "framework/CModuleState.h"
#include "model/CFakeMaterialLib.h"
#include "reader/LoadMaterialFile.h"
#include "resources/Texts.h"
#include "shared/MessageManager/MessageManager.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace
{
// The non-empty pieces of a list separated by ";", in their order. They point into `list`.
std::vector<std::string_view> SplitPathList(std::string_view list)
{
    std::vector<std::string_view> pieces;
    while (!list.empty())
    {
        const std::string_view piece = list.substr(0, list.find(';'));
        if (!piece.empty())
        {
            pieces.push_back(piece);
        }
        list.remove_prefix(piece.size() < list.size() ? piece.size() + 1 : piece.size());
    }
    return pieces;
}

void LoadFiles(CFakeMaterialLib& library, const char* fileList)
{
    for (const std::string_view piece : SplitPathList(fileList))
    {
        const std::string path(piece);
        if (IsExistingFile(path.c_str()))
        {
            LoadMaterialFile(library, path.c_str());
        }
    }
    if (!library.HasMaterialOfKind(MLMATERIAL_DIELECTRIC))
    {
        ShowWarning(LoadText(MLTEXT_NO_DIELECTRIC).c_str());
    }
}
} // namespace

IMatLib* CreateMaterialLibrary(const char* fileList)
{
    const CModuleStateScope scope;
    auto library = std::make_unique<CFakeMaterialLib>();
    if (fileList == nullptr)
    {
        library->FillSampleLibrary();
    }
    else
    {
        LoadFiles(*library, fileList);
    }
    return library.release();
}

void FreeMaterialLibrary(IMatLib* library)
{
    const CModuleStateScope scope;
    delete dynamic_cast<CFakeMaterialLib*>(library);
}
