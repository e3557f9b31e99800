#pragma once

#include "reader/CTokenScanner.h"
#include "resources/TextIds.h"

class CMaterial;

// What the reader wanted where a rule was broken.
enum class Expected
{
    header,        // the next part of {MAT_FILE}
    version,       // the next part of {VERSION=1.0} but its numbers
    versionNumber, // one of these
    knownVersion,  // a version that is not newer than the reader
    block,         // "{"
    blockWord,     // DIELECTRIC or METAL
    sameKind,      // the block word of the first material
    record,        // "(" or "}"
    key,           // a record's key
    equals,        // "=" behind a key or a table's word
    text,          // in quotes, on the line of the "="
    number,        // on the line of the "="
    word,          // a technology
    recordEnd,     // ")"
    tableItem,     // a table's word or ")"
    rowValue       // a number on the line of its frequency
};

struct BrokenRule
{
    MLTEXTID reason; // the library's message
    Place place;     // where the scanner stands: the library's place
    Expected expected;
    std::string_view token; // the one read last, empty at the end of the text. A value that is missing or
                            // wrong is no token: it would stand behind.
};

// Hears of what a reader meets, in the order of the file, each with the token: a part of the text that the
// scanner is attached to. It may have the reader go on behind a broken rule. Each class overrides what it
// wants to hear of.
class IReadObserver
{
public:
    // The next piece of the text: a sign, a word, a number or a text with its quotes, before anything else is
    // told of it. Between two pieces stand blanks, line breaks and comments, and nothing else.
    virtual void OnPiece(std::string_view /*piece*/) {}

    virtual void OnBlock(std::string_view /*word*/) {}
    virtual void OnUnknownBlock(std::string_view /*word*/) {} // passed over; another "{" has to follow
    virtual void OnRecord(std::string_view /*key*/) {}
    virtual void OnText(std::string_view /*text*/) {}        // a record's value in quotes
    virtual void OnTechnology(std::string_view /*word*/) {}  // a record's value without
    virtual void OnTable(std::string_view /*key*/) {}        // the record is a table
    virtual void OnRow(std::string_view /*frequency*/) {}    // the table has one more row
    virtual void OnSingleValue(std::string_view /*word*/) {} // the table has this one row

    // A block has been read without an error.
    virtual void OnMaterial(CMaterial& /*material*/) {}

    virtual void OnError(const BrokenRule& /*rule*/) {}

    // Whether reading goes on behind an error. It does after one of the operations below, which get the token
    // that was read last, empty at the end of the text, and move the scanner.
    [[nodiscard]] virtual bool GoesOn() const { return false; }

    // Behind an error in a block: before a token of that block. False when the block is over.
    [[nodiscard]] virtual bool GoToNextRecord(std::string_view /*token*/) { return false; }

    // Behind an error outside: before the next "{".
    virtual void GoToNextBlock(std::string_view /*token*/) {}

    // Behind an error in the header: before the word of the first block. False when there is none.
    [[nodiscard]] virtual bool GoToFirstBlock(std::string_view /*token*/) { return false; }

protected:
    ~IReadObserver() = default;
};
