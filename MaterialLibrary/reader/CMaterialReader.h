#pragma once

#include "MaterialLibrary/MLTypes.h"
#include "model/ITechnologyMapProvider.h"
#include "reader/CLexReader.h"
#include "reader/CTokenScanner.h"
#include "resources/TextIds.h"

#include <utility>

class CFakeMaterialLib;
class CMaterial;
class CMaterialTable;
class IReadObserver;
enum class Expected;
struct MLRECORDKEY;

// Reads material libraries: a header and blocks of dielectrics or of metals (docs/file-format.md). Every
// operation throws CParseError where the text does not keep to the format; the scanner then stands where
// the reading ended.
class CMaterialReader : public CLexReader
{
public:
    // `readObserver` may be null.
    explicit CMaterialReader(CTokenScanner& tokenScanner, IReadObserver* readObserver = nullptr);
    virtual ~CMaterialReader() = default;
    CMaterialReader(const CMaterialReader&) = delete;
    CMaterialReader& operator=(const CMaterialReader&) = delete;

    [[nodiscard]] std::uint32_t& MajorVersion() override { return major; }
    [[nodiscard]] std::uint32_t& MinorVersion() override { return minor; }

    // Reads the text attached to the scanner up to its end and appends its materials to the library, each
    // once its block was read completely.
    void ReadLibrary(CFakeMaterialLib& library);

private:
    void ReadHeader();
    void ReadVersion();
    void ReadVersionNumber(std::uint32_t& number);
    [[nodiscard]] bool ReadNextBlock(CFakeMaterialLib& library);
    void ReadBlock(CFakeMaterialLib& library);
    [[nodiscard]] bool ReadDielectric(CMaterial& material);
    [[nodiscard]] bool ReadMetal(CMaterial& material);
    template <const auto& keys>
    [[nodiscard]] bool ReadRecords(CMaterial& material);
    template <const auto& keys>
    [[nodiscard]] bool ReadRecord(CMaterial& material);
    template <const auto& keys, std::size_t... index>
    [[nodiscard]] const MLRECORDKEY* TakeKey(std::index_sequence<index...>);
    void ReadValue(CMaterial& material, const MLRECORDKEY& key);
    [[nodiscard]] int GetTechnologyId(std::string_view word);
    void ReadTable(CMaterialTable& table);
    void ReadRows(CMaterialTable& table);

    [[nodiscard]] bool NextToken() { return scanner->NextToken(token); }
    [[nodiscard]] bool IsSign(char sign) const { return token.size() == 1 && token.front() == sign; }
    void NeedToken(Expected expected);
    void NeedSign(char sign, MLTEXTID reason, Expected expected);
    void NeedPartOfHeader(std::string_view part, Expected expected);
    [[nodiscard]] std::string_view NeedQuoted();
    [[nodiscard]] double NeedNumber(MLTEXTID reason, Expected expected);
    [[nodiscard]] double NeedAssignedNumber();

    void Tell(void (IReadObserver::*event)(std::string_view), std::string_view what);
    void TellPiece();
    void TellValue(const char* start);
    [[noreturn]] void Refuse(MLTEXTID reason, Expected expected);
    template <class Read>
    [[nodiscard]] bool Attempt(Read read);

    std::uint32_t major = 0;
    std::uint32_t minor = 0;
    ITechnologyMapProvider* technologies;
    struct
    {
        std::string_view word;
        int identifier;
    } technology = {{}, MLTECHNOLOGY_UNKNOWN}; // the last one looked up
    IReadObserver* observer;
    std::string_view token;     // the last one; empty at the end of the text
    std::string_view blockWord; // of the first block; a file holds blocks of one word only
};
