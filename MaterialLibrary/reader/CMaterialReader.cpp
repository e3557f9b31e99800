#include "reader/CMaterialReader.h"

#include "model/CFakeMaterialLib.h"
#include "model/CMaterial.h"
#include "reader/CTokenScanner.h"
#include "reader/ReadError.h"
#include "shared/Misc_String/EngineeringNumber.h"

#include <algorithm>
#include <variant>

namespace
{
constexpr std::uint32_t newestMajor = 1;
constexpr std::uint32_t newestMinor = 0;
constexpr std::string_view dielectricWord = "DIELECTRIC";
constexpr std::string_view metalWord = "METAL";

// What the value of a record is and where it goes.
struct TextValue
{
    void (IMaterialIO::*set)(const char*);
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

// Whether the token is that one character; cheaper than comparing texts, and most tokens are brackets.
bool IsSign(std::string_view token, char sign)
{
    return token.size() == 1 && token.front() == sign;
}
} // namespace

struct MLRECORDKEY
{
    std::string_view word;
    std::variant<TextValue, NumberValue, TechnologyValue, TableValue> value;
};

namespace
{
constexpr MLRECORDKEY dielectricKeys[] = {
    {"NAME", TextValue{&IMaterialIO::SetName}},
    {"TYPE", TextValue{&IMaterialIO::SetTypeName}},
    {"TECHNOLOGY", TechnologyValue{}},
    {"VENDOR", TextValue{&IMaterialIO::SetVendor}},
    {"COMMENT", TextValue{&IMaterialIO::SetComment}},
    {"THICKNESS", NumberValue{MLATTR_THICKNESS}},
    {"ER", TableValue{MLTABLE_ER}},
    {"LOSSTANGENT", TableValue{MLTABLE_LOSS_TANGENT}},
};

constexpr MLRECORDKEY metalKeys[] = {
    {"NAME", TextValue{&IMaterialIO::SetName}},         {"TYPE", TextValue{&IMaterialIO::SetTypeName}},
    {"VENDOR", TextValue{&IMaterialIO::SetVendor}},     {"COMMENT", TextValue{&IMaterialIO::SetComment}},
    {"RB", NumberValue{MLATTR_BULK_RESISTIVITY}},       {"ROUGHTOP", TableValue{MLTABLE_ROUGHNESS_TOP}},
    {"ROUGHBTM", TableValue{MLTABLE_ROUGHNESS_BOTTOM}},
};
} // namespace

CMaterialReader::CMaterialReader(CTokenScanner& tokenScanner)
    : CLexReader(tokenScanner), technologies(&GetTechnologyMap())
{
}

void CMaterialReader::NeedToken(std::string_view& token)
{
    if (!scanner->NextToken(token))
    {
        throw CParseError(MLTEXT_MISSING_VALUE);
    }
}

void CMaterialReader::NeedSign(char expected, MLTEXTID reason)
{
    std::string_view token;
    if (!scanner->NextToken(token) || !IsSign(token, expected))
    {
        throw CParseError(reason);
    }
}

void CMaterialReader::NeedThisToken(std::string_view expected, MLTEXTID reason)
{
    std::string_view token;
    if (!scanner->NextToken(token) || token != expected)
    {
        throw CParseError(reason);
    }
}

const char* CMaterialReader::NeedQuoted()
{
    std::string_view quoted;
    if (!scanner->ReadQuoted(quoted))
    {
        throw CParseError(MLTEXT_MISSING_VALUE);
    }
    return quoted.data();
}

double CMaterialReader::NeedNumber()
{
    double value = 0.0;
    if (!scanner->ReadNumber(value))
    {
        throw CParseError(MLTEXT_BAD_NUMBER);
    }
    return value;
}

void CMaterialReader::ReadHeader()
{
    for (const std::string_view expected : {"{", "MAT_FILE", "}"})
    {
        NeedThisToken(expected, MLTEXT_BAD_HEADER);
    }
}

void CMaterialReader::ReadVersion()
{
    for (const std::string_view expected : {"{", "VERSION", "="})
    {
        NeedThisToken(expected, MLTEXT_BAD_HEADER);
    }
    if (!scanner->ReadInteger(MajorVersion()))
    {
        throw CParseError(MLTEXT_BAD_HEADER);
    }
    NeedThisToken(".", MLTEXT_BAD_HEADER);
    if (!scanner->ReadInteger(MinorVersion()))
    {
        throw CParseError(MLTEXT_BAD_HEADER);
    }
    NeedThisToken("}", MLTEXT_BAD_HEADER);
    if (major > newestMajor || (major == newestMajor && minor > newestMinor))
    {
        throw CParseError(MLTEXT_NEWER_VERSION);
    }
}

void CMaterialReader::ReadLibrary(CFakeMaterialLib& library)
{
    scanner->SetDelimiters("{}()=.");
    ReadHeader();
    ReadVersion();
    scanner->SetDelimiters("{}()="); // in the body a point is part of a number or of a word
    std::string_view token;
    while (scanner->NextToken(token))
    {
        if (!IsSign(token, '{'))
        {
            throw CParseError(MLTEXT_BRACKET_EXPECTED);
        }
        NeedToken(token);
        ReadBlock(library, token);
    }
}

void CMaterialReader::ReadBlock(CFakeMaterialLib& library, std::string_view word)
{
    const bool isDielectric = word == dielectricWord;
    if (!isDielectric && word != metalWord)
    {
        return; // the word of an unknown block is passed over
    }
    const std::string_view known = isDielectric ? dielectricWord : metalWord;
    if (!blockWord.empty() && blockWord != known)
    {
        throw CParseError(MLTEXT_MIXED_KINDS);
    }
    blockWord = known;
    CMaterial& material = library.MakeMaterial();
    if (isDielectric)
    {
        ReadDielectric(material);
    }
    else
    {
        ReadMetal(material);
    }
    library.AddMaterial(material);
}

void CMaterialReader::ReadRecords(IMaterialIO& material, std::span<const MLRECORDKEY> keys)
{
    std::string_view token;
    for (NeedToken(token); !IsSign(token, '}'); NeedToken(token))
    {
        if (!IsSign(token, '('))
        {
            throw CParseError(MLTEXT_BRACKET_EXPECTED);
        }
        NeedToken(token);
        ReadRecord(material, keys, token);
    }
}

void CMaterialReader::ReadRecord(IMaterialIO& material, std::span<const MLRECORDKEY> keys,
                                 std::string_view word)
{
    const auto key = std::find_if(keys.begin(), keys.end(),
                                  [word](const MLRECORDKEY& each)
                                  { return each.word.front() == word.front() && each.word == word; });
    if (key == keys.end())
    {
        NeedSign(')', MLTEXT_BRACKET_EXPECTED); // a word alone, "(FOO)", passes
        return;
    }
    if (const auto* table = std::get_if<TableValue>(&key->value))
    {
        ReadTable(*material.AddTable(table->tableKind));
        return;
    }
    NeedSign('=', MLTEXT_EQUALS_EXPECTED);
    if (const auto* text = std::get_if<TextValue>(&key->value))
    {
        (material.*text->set)(NeedQuoted());
    }
    else if (const auto* number = std::get_if<NumberValue>(&key->value))
    {
        material.SetAttribute(number->attribute, NeedNumber());
    }
    else
    {
        std::string_view technology;
        NeedToken(technology);
        material.SetIntAttribute(MLATTR_TECHNOLOGY, technologies->GetTechnologyId(technology.data()));
    }
    NeedSign(')', MLTEXT_BRACKET_EXPECTED);
}

void CMaterialReader::ReadDielectric(IMaterialIO& material)
{
    material.SetKind(MLMATERIAL_DIELECTRIC);
    ReadRecords(material, dielectricKeys);
}

void CMaterialReader::ReadMetal(IMaterialIO& material)
{
    material.SetKind(MLMATERIAL_METAL);
    ReadRecords(material, metalKeys);
}

// Leaves the first token that is no row's frequency in `token`, none at the end of the text.
void CMaterialReader::ReadRows(IMaterialTableIO& table, std::string_view& token)
{
    MLTBLENTRY row{};
    while (scanner->NextToken(token) && !IsSign(token, ')') && ParseEngineeringNumber(token, &row.frequency))
    {
        if (!scanner->ReadNumber(row.value))
        {
            throw CParseError(MLTEXT_FREQUENCY_WITHOUT_VALUE);
        }
        table.AddEntry(row);
    }
}

void CMaterialReader::ReadTable(IMaterialTableIO& table)
{
    table.SetTemperature(CMaterialTable::defaultTemperature);
    std::string_view token;
    bool found = scanner->NextToken(token);
    while (found && !IsSign(token, ')'))
    {
        if (token == "TABLE")
        {
            NeedSign('=', MLTEXT_EQUALS_EXPECTED);
            ReadRows(table, token);
            found = !token.empty();
            continue;
        }
        if (token == "TEMPERATURE")
        {
            NeedSign('=', MLTEXT_EQUALS_EXPECTED);
            table.SetTemperature(NeedNumber());
        }
        else if (token == "VALUE")
        {
            NeedSign('=', MLTEXT_EQUALS_EXPECTED);
            table.SetSingleValue(NeedNumber());
        }
        else
        {
            throw CParseError(MLTEXT_UNKNOWN_TABLE_ITEM);
        }
        found = scanner->NextToken(token);
    }
}
