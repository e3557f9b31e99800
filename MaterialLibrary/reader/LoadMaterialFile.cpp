#include "reader/LoadMaterialFile.h"

#include "model/CFakeMaterialLib.h"
#include "reader/CMaterialReader.h"
#include "reader/ReadError.h"
#include "reader/ReadWholeFile.h"
#include "resources/FormatText.h"
#include "resources/Texts.h"
#include "shared/MessageManager/MessageManager.h"

std::optional<ReadFailure> ReadMaterials(CFakeMaterialLib& library, const char* paddedText)
{
    CTokenScanner scanner;
    scanner.Attach(paddedText);
    CMaterialReader reader(scanner);
    try
    {
        reader.ReadLibrary(library);
    }
    catch (const CParseError& error)
    {
        return ReadFailure{scanner.GetLine() + 1, scanner.GetColumn(), LoadText(error.GetReason())};
    }
    return std::nullopt;
}

std::string PadText(std::string text)
{
    text.append(1 + textPadding, '\0');
    return text;
}

namespace
{
bool ReadOrWarn(CFakeMaterialLib& library, const char* paddedText, const char* path)
{
    const auto failure = ReadMaterials(library, paddedText);
    if (!failure)
    {
        return true;
    }
    ShowWarning(FormatText(LoadText(MLTEXT_PARSE_ERROR_FRAME),
                           {std::string_view(path), failure->line, failure->column, failure->reason})
                    .c_str());
    library.RemoveAllMaterials();
    return false;
}
} // namespace

bool LoadMaterialText(CFakeMaterialLib& library, std::string text, const char* path)
{
    return ReadOrWarn(library, PadText(std::move(text)).c_str(), path);
}

bool LoadMaterialFile(CFakeMaterialLib& library, const char* path)
{
    std::unique_ptr<char[]> text;
    try
    {
        text = ReadWholeFile(File(std::fopen(path, "rb")), path);
    }
    catch (const CFileError& error)
    {
        ShowWarning(error.GetText().c_str());
        library.RemoveAllMaterials();
        return false;
    }
    return ReadOrWarn(library, text.get(), path);
}
