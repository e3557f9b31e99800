#pragma once

#include "model/ITechnologyMapProvider.h"
#include "reader/CLexReader.h"
#include "resources/TextIds.h"

#include <span>
#include <string_view>

class CFakeMaterialLib;
class IMaterialIO;
class IMaterialTableIO;
struct MLRECORDKEY;

// Reads material libraries: a header and blocks of dielectrics or of metals (docs/file-format.md). Every
// operation throws CParseError where the text does not keep to the format; the scanner then stands where
// the reading ended.
class CMaterialReader : public CLexReader
{
public:
    explicit CMaterialReader(CTokenScanner& tokenScanner);
    virtual ~CMaterialReader() = default;
    CMaterialReader(const CMaterialReader&) = delete;
    CMaterialReader& operator=(const CMaterialReader&) = delete;

    [[nodiscard]] std::uint32_t& MajorVersion() override { return major; }
    [[nodiscard]] std::uint32_t& MinorVersion() override { return minor; }

    // Reads the text attached to the scanner up to its end and appends its materials to the library, each
    // once its block was read completely.
    void ReadLibrary(CFakeMaterialLib& library);

    // Read the records of one material up to the "}" of its block.
    void ReadDielectric(IMaterialIO& material);
    void ReadMetal(IMaterialIO& material);

    // Reads the body of a table up to its ")" or the end of the text.
    void ReadTable(IMaterialTableIO& table);

private:
    void ReadHeader();
    void ReadVersion();
    void ReadBlock(CFakeMaterialLib& library, std::string_view word);
    void ReadRecords(IMaterialIO& material, std::span<const MLRECORDKEY> keys);
    void ReadRecord(IMaterialIO& material, std::span<const MLRECORDKEY> keys, std::string_view word);
    void ReadRows(IMaterialTableIO& table, std::string_view& token);

    void NeedToken(std::string_view& token);
    void NeedSign(char expected, MLTEXTID reason);
    void NeedThisToken(std::string_view expected, MLTEXTID reason);
    [[nodiscard]] const char* NeedQuoted();
    [[nodiscard]] double NeedNumber();

    std::uint32_t major = 0;
    std::uint32_t minor = 0;
    ITechnologyMapProvider* technologies;
    std::string_view blockWord; // of the first block; a file holds blocks of one word only
};
