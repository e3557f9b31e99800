#include "MaterialLibrary/MaterialLibrary.h"
#include "entry/FileQuery.h"
#include "entry/PathList.h"
#include "framework/CModuleState.h"
#include "model/CFakeMaterialLib.h"
#include "reader/LoadMaterialFile.h"
#include "resources/Texts.h"
#include "shared/MessageManager/MessageManager.h"

#include <memory>
#include <string>

namespace
{
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
