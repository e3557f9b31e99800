#include "reader/LoadMaterialFile.h"

#include "model/CFakeMaterialLib.h"
#include "reader/CMaterialReader.h"
#include "reader/CTokenScanner.h"
#include "reader/ReadError.h"
#include "reader/ReadWholeFile.h"
#include "resources/FormatText.h"
#include "resources/Texts.h"
#include "shared/MessageManager/MessageManager.h"

namespace
{
std::string DescribeParseError(const char* path, const CTokenScanner& scanner, const CParseError& error)
{
    return FormatText(LoadText(MLTEXT_PARSE_ERROR_FRAME), {std::string_view(path), scanner.GetLine() + 1,
                                                           scanner.GetColumn(), LoadText(error.GetReason())});
}
} // namespace

bool LoadMaterialText(CFakeMaterialLib& library, const char* text, const char* path)
{
    CTokenScanner scanner;
    scanner.Attach(text);
    CMaterialReader reader(scanner);
    try
    {
        reader.ReadLibrary(library);
        return true;
    }
    catch (const CParseError& error)
    {
        ShowWarning(DescribeParseError(path, scanner, error).c_str());
        library.RemoveAllMaterials();
        return false;
    }
}

bool LoadMaterialFile(CFakeMaterialLib& library, const char* path)
{
    std::unique_ptr<char[]> text;
    try
    {
        text = ReadWholeFile(path);
    }
    catch (const CFileError& error)
    {
        ShowWarning(error.GetText().c_str());
        library.RemoveAllMaterials();
        return false;
    }
    return LoadMaterialText(library, text.get(), path);
}
