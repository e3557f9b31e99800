#pragma once

#include "MaterialLibrary/MLTypes.h"
#include "tools/matlib/check/Finding.h"

// Where a rule was broken: what was read last of each kind, all of it parts of `text`.
struct ErrorContext
{
    std::string_view text;         // up to the NUL that ends it for the library
    std::string_view wholeFile;    // with what may stand behind
    std::string_view firstBlock;   // the word of the first material
    std::string_view unknownBlock; // the word that was passed over just before
    std::string_view block;        // the word of the material, empty outside of any
    std::string_view record;       // the key
    std::string_view quoted;       // the record's text, its data null where it has none
    std::string_view technology;   // the record's word
    std::string_view frequency;    // of the table's last row

    [[nodiscard]] std::size_t OffsetOf(std::string_view part) const
    {
        return static_cast<std::size_t>(part.data() - text.data());
    }
    [[nodiscard]] Span SpanOf(std::string_view part) const { return {OffsetOf(part), part.size()}; }
    [[nodiscard]] std::string_view GetWord(std::size_t offset) const
    {
        return Cut(text, WordAt(text, offset));
    }

    [[nodiscard]] MLMATERIALKIND GetKind() const
    {
        return block.starts_with('M') ? MLMATERIAL_METAL : MLMATERIAL_DIELECTRIC;
    }
};
