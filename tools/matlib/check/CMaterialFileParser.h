#pragma once

#include "reader/CTokenScanner.h"
#include "resources/TextIds.h"
#include "tools/matlib/check/ParsedFile.h"

#include <string_view>

// Whether reading goes on behind an error, at the next record or material.
enum class AfterError
{
    stop,
    goOn
};

// Reads a material file for its author. It takes and refuses the same files as the library, with the same
// first error at the same place, but keeps the places of what it reads and can go on behind an error.
class CMaterialFileParser
{
public:
    // Reads the text, which ends with NUL and is the same again afterwards.
    [[nodiscard]] static ParsedFile Parse(char* text, AfterError afterError);

private:
    struct Refused
    {
    };

    CMaterialFileParser(char* text, AfterError whatAfterError);
    void ParseFile();
    void ParseHeader();
    void ParseVersion();
    void ParseBlocks();
    void ParseBlock();
    [[nodiscard]] bool ParseRecords(ParsedMaterial& material);
    void ParseRecord(ParsedMaterial& material);
    void ParseSimpleRecord(ParsedMaterial& material, const ParsedText& key);
    void ParseTable(ParsedTable& table);
    void ParseRows(ParsedTable& table);

    [[nodiscard]] bool Next();
    void Hold() { held = true; }
    void Need();
    void NeedThis(std::string_view expected, MLTEXTID reason);
    [[nodiscard]] std::string NeedQuoted(Place record);
    [[nodiscard]] double NeedNumber(MLTEXTID reason);
    [[nodiscard]] bool IsSign(char sign) const { return token.size() == 1 && token.front() == sign; }
    [[nodiscard]] Place PlaceOfToken() const;

    void NoteError(MLTEXTID reason);
    [[noreturn]] void Refuse(MLTEXTID reason);
    void GoOnAtFirstMaterial();
    void GoOnAtNextBlock();
    [[nodiscard]] bool GoOnAtNextRecord();
    [[nodiscard]] bool NextOutsideQuotes();

    CTokenScanner scanner;
    char* start;
    AfterError afterError;
    ParsedFile file;
    std::string_view token; // empty at the end of the text
    bool held = false;      // the next token is the same once more
    std::optional<MLMATERIALKIND> kindOfFile;
};
