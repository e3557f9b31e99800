#pragma once

#include "reader/CTokenScanner.h"
#include "resources/TextIds.h"

class CMaterial;

// Hears of what a reader meets, in the order of the file, each with the token and where that begins. It may
// have the reader go on behind a broken rule.
class IReadObserver
{
public:
    virtual void OnBlock(std::string_view word, Place place) = 0;
    virtual void OnRecord(std::string_view key, Place place) = 0;
    virtual void OnText(std::string_view text, Place place) = 0;        // a record's value in quotes
    virtual void OnTechnology(std::string_view word, Place place) = 0;  // a record's value without
    virtual void OnTable(std::string_view key, Place place) = 0;        // the record is a table
    virtual void OnRow(std::string_view frequency, Place place) = 0;    // the table has one more row
    virtual void OnSingleValue(std::string_view word, Place place) = 0; // the table has this one row

    // A block has been read without an error.
    virtual void OnMaterial(CMaterial& material) = 0;

    // A rule was broken at this place, where the scanner stands.
    virtual void OnError(MLTEXTID reason, Place place) = 0;

    // Whether reading goes on behind an error. It does after one of the operations below, which get the token
    // that was read last, empty at the end of the text, and move the scanner.
    [[nodiscard]] virtual bool GoesOn() const = 0;

    // Behind an error in a block: before a token of that block. False when the block is over.
    [[nodiscard]] virtual bool GoToNextRecord(std::string_view token) = 0;

    // Behind an error outside: before the next "{".
    virtual void GoToNextBlock(std::string_view token) = 0;

    // Behind an error in the header: before the word of the first block. False when there is none.
    [[nodiscard]] virtual bool GoToFirstBlock(std::string_view token) = 0;

protected:
    ~IReadObserver() = default;
};
