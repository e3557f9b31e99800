#include "reader/LoadMaterialFile.h"

#include "model/CFakeMaterialLib.h"
#include "reader/CMaterialReader.h"
#include "reader/CTextPages.h"
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

// `pages` holds the text, or is null.
bool ReadMaterials(CFakeMaterialLib& library, char* text, CTextPages* pages, const char* path)
{
    CTokenScanner scanner;
    scanner.Attach(text);
    CMaterialReader reader(scanner, pages);
    try
    {
        reader.ReadLibrary(library);
        scanner.Detach();
        return true;
    }
    catch (const CParseError& error)
    {
        scanner.Detach();
        ShowWarning(DescribeParseError(path, scanner, error).c_str());
        library.RemoveAllMaterials();
        return false;
    }
}
} // namespace

bool LoadMaterialText(CFakeMaterialLib& library, char* text, const char* path)
{
    return ReadMaterials(library, text, nullptr, path);
}

bool LoadMaterialFile(CFakeMaterialLib& library, const char* path)
{
    std::unique_ptr<CTextPages> text;
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
    return ReadMaterials(library, text->Get(), text.get(), path);
}
