#include "reader/CMaterialReader.h"

#include "model/CFakeMaterialLib.h"
#include "model/CMaterial.h"
#include "reader/IReadObserver.h"
#include "reader/Keywords.h"
#include "reader/ReadError.h"
#include "reader/ReadPlainRows.h"
#include "shared/Misc_String/EngineeringNumber.h"

#include <algorithm>
#include <iterator>
#include <span>
#include <variant>

namespace
{
constexpr std::uint32_t newestMajor = 1;
constexpr std::uint32_t newestMinor = 0;

// What the value of a record is and where it goes.
struct TextValue
{
    void (CMaterial::*set)(std::string_view);
};
struct NumberValue
{
    MLATTRIBID attribute;
};
struct TechnologyValue
{
};
struct TableValue
{
    int tableKind;
};
} // namespace

struct MLRECORDKEY
{
    std::string_view word;
    std::variant<TextValue, NumberValue, TechnologyValue, TableValue> value;
};

namespace
{
constexpr MLRECORDKEY dielectricKeys[] = {
    {keyword::name, TextValue{&CMaterial::SetName}},
    {keyword::type, TextValue{&CMaterial::SetTypeName}},
    {keyword::technology, TechnologyValue{}},
    {keyword::vendor, TextValue{&CMaterial::SetVendor}},
    {keyword::comment, TextValue{&CMaterial::SetComment}},
    {keyword::thickness, NumberValue{MLATTR_THICKNESS}},
    {keyword::er, TableValue{MLTABLE_ER}},
    {keyword::lossTangent, TableValue{MLTABLE_LOSS_TANGENT}},
};

constexpr MLRECORDKEY metalKeys[] = {
    {keyword::name, TextValue{&CMaterial::SetName}},
    {keyword::type, TextValue{&CMaterial::SetTypeName}},
    {keyword::vendor, TextValue{&CMaterial::SetVendor}},
    {keyword::comment, TextValue{&CMaterial::SetComment}},
    {keyword::resistivity, NumberValue{MLATTR_BULK_RESISTIVITY}},
    {keyword::roughTop, TableValue{MLTABLE_ROUGHNESS_TOP}},
    {keyword::roughBottom, TableValue{MLTABLE_ROUGHNESS_BOTTOM}},
};
} // namespace

std::vector<std::string_view> ListKeys(MLMATERIALKIND kind)
{
    const std::span<const MLRECORDKEY> keys =
        kind == MLMATERIAL_METAL ? std::span<const MLRECORDKEY>(metalKeys) : dielectricKeys;
    std::vector<std::string_view> words;
    std::ranges::transform(keys, std::back_inserter(words), &MLRECORDKEY::word);
    return words;
}

CMaterialReader::CMaterialReader(CTokenScanner& tokenScanner, IReadObserver* readObserver)
    : CLexReader(tokenScanner), technologies(&GetTechnologyMap()), observer(readObserver)
{
}

void CMaterialReader::Tell(void (IReadObserver::*event)(std::string_view), std::string_view what)
{
    if (observer != nullptr)
    {
        (observer->*event)(what);
    }
}

// The token is a piece of the text.
void CMaterialReader::TellPiece()
{
    Tell(&IReadObserver::OnPiece, token);
}

// What the scanner has read since it was at `start` is a piece behind blanks.
void CMaterialReader::TellValue(const char* start)
{
    if (observer != nullptr)
    {
        const std::string_view read(start, static_cast<std::size_t>(scanner->GetPlace().cursor - start));
        observer->OnPiece(read.substr(read.find_first_not_of(" \t")));
    }
}

void CMaterialReader::Refuse(MLTEXTID reason, Expected expected)
{
    if (observer != nullptr)
    {
        observer->OnError({reason, {scanner->GetLine() + 1, scanner->GetColumn()}, expected, token});
    }
    throw CParseError(reason);
}

// Whether `read` got to its end; false where it did not but the observer wants more.
template <class Read>
bool CMaterialReader::Attempt(Read read)
{
    try
    {
        read();
        return true;
    }
    catch (const CParseError&)
    {
        if (observer == nullptr || !observer->GoesOn())
        {
            throw;
        }
        return false;
    }
}

void CMaterialReader::NeedToken(Expected expected)
{
    if (!NextToken())
    {
        Refuse(MLTEXT_MISSING_VALUE, expected);
    }
}

void CMaterialReader::NeedSign(char sign, MLTEXTID reason, Expected expected)
{
    scanner->GoToToken();
    if (!scanner->TakeDelimiter(sign, token))
    {
        static_cast<void>(NextToken()); // an error is told behind the token that breaks the rule
        Refuse(reason, expected);
    }
    TellPiece();
}

void CMaterialReader::NeedPartOfHeader(std::string_view part, Expected expected)
{
    if (!NextToken() || token != part)
    {
        Refuse(MLTEXT_BAD_HEADER, expected);
    }
    TellPiece();
}

std::string_view CMaterialReader::NeedQuoted()
{
    const char* const start = scanner->GetPlace().cursor;
    std::string_view quoted;
    if (!scanner->ReadQuoted(quoted))
    {
        Refuse(MLTEXT_MISSING_VALUE, Expected::text);
    }
    TellValue(start);
    return quoted;
}

double CMaterialReader::NeedNumber(MLTEXTID reason, Expected expected)
{
    const char* const start = scanner->GetPlace().cursor;
    double value = 0.0;
    if (!scanner->ReadNumber(value))
    {
        Refuse(reason, expected);
    }
    TellValue(start);
    return value;
}

double CMaterialReader::NeedAssignedNumber()
{
    NeedSign('=', MLTEXT_EQUALS_EXPECTED, Expected::equals);
    return NeedNumber(MLTEXT_BAD_NUMBER, Expected::number);
}

void CMaterialReader::ReadHeader()
{
    for (const std::string_view part : {std::string_view("{"), keyword::matFile, std::string_view("}")})
    {
        NeedPartOfHeader(part, Expected::header);
    }
}

void CMaterialReader::ReadVersion()
{
    for (const std::string_view part : {std::string_view("{"), keyword::version, std::string_view("=")})
    {
        NeedPartOfHeader(part, Expected::version);
    }
    ReadVersionNumber(MajorVersion());
    NeedPartOfHeader(".", Expected::version);
    ReadVersionNumber(MinorVersion());
    NeedPartOfHeader("}", Expected::version);
    if (major > newestMajor || (major == newestMajor && minor > newestMinor))
    {
        Refuse(MLTEXT_NEWER_VERSION, Expected::knownVersion);
    }
}

void CMaterialReader::ReadVersionNumber(std::uint32_t& number)
{
    const char* const start = scanner->GetPlace().cursor;
    if (!scanner->ReadInteger(number))
    {
        Refuse(MLTEXT_BAD_HEADER, Expected::versionNumber);
    }
    TellValue(start);
}

void CMaterialReader::ReadLibrary(CFakeMaterialLib& library)
{
    scanner->SetDelimiters("{}()=.");
    const bool hasHeader = Attempt(
        [this]
        {
            ReadHeader();
            ReadVersion();
        });
    scanner->SetDelimiters("{}()="); // in the body a point is part of a number or of a word
    if (!hasHeader && observer->GoToFirstBlock(token))
    {
        ReadBlock(library);
    }
    for (bool isOpen = true; isOpen;)
    {
        if (!Attempt([&] { isOpen = ReadNextBlock(library); }))
        {
            observer->GoToNextBlock(token);
        }
    }
}

// False at the end of the text.
bool CMaterialReader::ReadNextBlock(CFakeMaterialLib& library)
{
    scanner->GoToToken();
    if (!scanner->TakeDelimiter('{', token))
    {
        if (NextToken())
        {
            Refuse(MLTEXT_BRACKET_EXPECTED, Expected::block);
        }
        return false;
    }
    TellPiece();
    ReadBlock(library);
    return true;
}

// Reads a block from its word on.
void CMaterialReader::ReadBlock(CFakeMaterialLib& library)
{
    scanner->GoToToken();
    const bool isDielectric = scanner->TakeWord(keyword::dielectric, token);
    if (!isDielectric && !scanner->TakeWord(keyword::metal, token))
    {
        NeedToken(Expected::blockWord);
        TellPiece();
        Tell(&IReadObserver::OnUnknownBlock, token);
        return;
    }
    TellPiece();
    Tell(&IReadObserver::OnBlock, token);
    if (blockWord.empty())
    {
        blockWord = token;
    }
    if (blockWord != token)
    {
        static_cast<void>(
            Attempt([this] { Refuse(MLTEXT_MIXED_KINDS, Expected::sameKind); })); // read it all the same
    }
    CMaterial& material = library.MakeMaterial();
    if (isDielectric ? ReadDielectric(material) : ReadMetal(material))
    {
        library.AddMaterial(material);
        if (observer != nullptr)
        {
            observer->OnMaterial(material);
        }
    }
}

bool CMaterialReader::ReadDielectric(CMaterial& material)
{
    material.SetKind(MLMATERIAL_DIELECTRIC);
    return ReadRecords<dielectricKeys>(material);
}

bool CMaterialReader::ReadMetal(CMaterial& material)
{
    material.SetKind(MLMATERIAL_METAL);
    return ReadRecords<metalKeys>(material);
}

// Reads up to the "}" of the block. Whether the material is without an error.
template <const auto& keys>
bool CMaterialReader::ReadRecords(CMaterial& material)
{
    bool isWhole = true;
    bool isOpen = true;
    while (isOpen)
    {
        if (!Attempt([&] { isOpen = ReadRecord<keys>(material); }))
        {
            isWhole = false;
            isOpen = observer->GoToNextRecord(token);
        }
    }
    return isWhole;
}

// False at the "}" of the block.
template <const auto& keys>
bool CMaterialReader::ReadRecord(CMaterial& material)
{
    scanner->GoToToken();
    if (!scanner->TakeDelimiter('(', token))
    {
        NeedToken(Expected::record);
        if (!IsSign('}'))
        {
            Refuse(MLTEXT_BRACKET_EXPECTED, Expected::record);
        }
        TellPiece();
        return false;
    }
    TellPiece();
    const MLRECORDKEY* const key = TakeKey<keys>(std::make_index_sequence<std::size(keys)>());
    if (key == nullptr)
    {
        NeedToken(Expected::key); // a word alone, "(FOO)", passes
    }
    TellPiece();
    Tell(&IReadObserver::OnRecord, token);
    if (key != nullptr)
    {
        if (const auto* const table = std::get_if<TableValue>(&key->value))
        {
            Tell(&IReadObserver::OnTable, token);
            ReadTable(material.MakeTable(table->tableKind));
            return true;
        }
        ReadValue(material, *key);
    }
    NeedSign(')', MLTEXT_BRACKET_EXPECTED, Expected::recordEnd);
    return true;
}

// Takes a key. Written out for each of the keys, so that the compiler knows the words: null when it is none.
template <const auto& keys, std::size_t... index>
const MLRECORDKEY* CMaterialReader::TakeKey(std::index_sequence<index...>)
{
    const MLRECORDKEY* taken = nullptr;
    scanner->GoToToken();
    static_cast<void>(
        ((scanner->TakeWord(keys[index].word, token) && (taken = &keys[index]) != nullptr) || ...));
    return taken;
}

void CMaterialReader::ReadValue(CMaterial& material, const MLRECORDKEY& key)
{
    if (const auto* number = std::get_if<NumberValue>(&key.value))
    {
        material.SetAttribute(number->attribute, NeedAssignedNumber());
        return;
    }
    NeedSign('=', MLTEXT_EQUALS_EXPECTED, Expected::equals);
    if (const auto* text = std::get_if<TextValue>(&key.value))
    {
        const std::string_view quoted = NeedQuoted();
        Tell(&IReadObserver::OnText, quoted);
        (material.*text->set)(quoted);
    }
    else
    {
        NeedToken(Expected::word);
        TellPiece();
        Tell(&IReadObserver::OnTechnology, token);
        material.SetIntAttribute(MLATTR_TECHNOLOGY, GetTechnologyId(token));
    }
}

// A file repeats few words; looking one up takes as long as reading three records.
int CMaterialReader::GetTechnologyId(std::string_view word)
{
    if (word != technology.word)
    {
        technology = {word, technologies->GetTechnologyId(std::string(word).c_str())};
    }
    return technology.identifier;
}

// Reads the body of a table up to its ")" or the end of the text.
void CMaterialReader::ReadTable(CMaterialTable& table)
{
    while (scanner->GoToToken() != ')')
    {
        if (scanner->TakeWord(keyword::table, token))
        {
            TellPiece();
            NeedSign('=', MLTEXT_EQUALS_EXPECTED, Expected::equals);
            ReadRows(table);
        }
        else if (scanner->TakeWord(keyword::temperature, token))
        {
            TellPiece();
            table.SetTemperature(NeedAssignedNumber());
        }
        else if (scanner->TakeWord(keyword::value, token))
        {
            TellPiece();
            Tell(&IReadObserver::OnSingleValue, token);
            table.SetSingleValue(NeedAssignedNumber());
        }
        else if (NextToken())
        {
            Refuse(MLTEXT_UNKNOWN_TABLE_ITEM, Expected::tableItem);
        }
        else
        {
            return;
        }
    }
    static_cast<void>(NextToken());
    TellPiece();
}

// Reads up to the first token that is no row's frequency.
void CMaterialReader::ReadRows(CMaterialTable& table)
{
    for (;;)
    {
        ReadPlainRows(scanner->GetPlace(), table, observer);
        if (scanner->GoToToken() == ')')
        {
            return;
        }
        MLTBLENTRY row{};
        if (!NextToken() || !ParseEngineeringNumber(token, &row.frequency))
        {
            scanner->GoBackTo(token);
            return;
        }
        TellPiece();
        Tell(&IReadObserver::OnRow, token);
        row.value = NeedNumber(MLTEXT_FREQUENCY_WITHOUT_VALUE, Expected::rowValue);
        table.AddEntry(row);
    }
}
