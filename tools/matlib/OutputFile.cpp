#include "tools/matlib/OutputFile.h"

#include "tools/matlib/CFailure.h"
#include "tools/matlib/Platform.h"
#include "tools/matlib/Wording.h"

void WriteOutputFile(const std::string& path, std::string_view text, ExistingFile existing)
{
    try
    {
        WriteWholeFile(MakeUtf8Path(path).c_str(), text, existing);
    }
    catch (const CWriteError& error)
    {
        throw CFailure(error.GetKind() == CWriteError::Kind::exists
                           ? Quote(path) + " exists; --force replaces it"
                           : "cannot write " + Quote(path) + ": " + error.GetReason());
    }
}
