#include "reader/CMaterialReader.h"

#include "model/CFakeMaterialLib.h"
#include "model/CMaterial.h"
#include "reader/IReadObserver.h"
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
    {"NAME", TextValue{&CMaterial::SetName}},
    {"TYPE", TextValue{&CMaterial::SetTypeName}},
    {"TECHNOLOGY", TechnologyValue{}},
    {"VENDOR", TextValue{&CMaterial::SetVendor}},
    {"COMMENT", TextValue{&CMaterial::SetComment}},
    {"THICKNESS", NumberValue{MLATTR_THICKNESS}},
    {"ER", TableValue{MLTABLE_ER}},
    {"LOSSTANGENT", TableValue{MLTABLE_LOSS_TANGENT}},
};

constexpr MLRECORDKEY metalKeys[] = {
    {"NAME", TextValue{&CMaterial::SetName}},           {"TYPE", TextValue{&CMaterial::SetTypeName}},
    {"VENDOR", TextValue{&CMaterial::SetVendor}},       {"COMMENT", TextValue{&CMaterial::SetComment}},
    {"RB", NumberValue{MLATTR_BULK_RESISTIVITY}},       {"ROUGHTOP", TableValue{MLTABLE_ROUGHNESS_TOP}},
    {"ROUGHBTM", TableValue{MLTABLE_ROUGHNESS_BOTTOM}},
};
} // namespace

CMaterialReader::CMaterialReader(CTokenScanner& tokenScanner, IReadObserver* readObserver)
    : CLexReader(tokenScanner), technologies(&GetTechnologyMap()), observer(readObserver)
{
}

void CMaterialReader::Tell(void (IReadObserver::*event)(std::string_view, Place), std::string_view what)
{
    if (observer != nullptr)
    {
        (observer->*event)(what, scanner->GetPlaceOf(what));
    }
}

void CMaterialReader::NoteError(MLTEXTID reason)
{
    if (observer != nullptr)
    {
        observer->OnError(reason, {scanner->GetLine() + 1, scanner->GetColumn()});
    }
}

void CMaterialReader::Refuse(MLTEXTID reason)
{
    NoteError(reason);
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

void CMaterialReader::NeedToken()
{
    if (!NextToken())
    {
        Refuse(MLTEXT_MISSING_VALUE);
    }
}

void CMaterialReader::NeedSign(char expected, MLTEXTID reason)
{
    if (!NextToken() || !IsSign(expected))
    {
        Refuse(reason);
    }
}

void CMaterialReader::NeedThisToken(std::string_view expected, MLTEXTID reason)
{
    if (!NextToken() || token != expected)
    {
        Refuse(reason);
    }
}

std::string_view CMaterialReader::NeedQuoted()
{
    std::string_view quoted;
    if (!scanner->ReadQuoted(quoted))
    {
        Refuse(MLTEXT_MISSING_VALUE);
    }
    return quoted;
}

double CMaterialReader::NeedNumber(MLTEXTID reason)
{
    double value = 0.0;
    if (!scanner->ReadNumber(value))
    {
        Refuse(reason);
    }
    return value;
}

double CMaterialReader::NeedAssignedNumber()
{
    NeedSign('=', MLTEXT_EQUALS_EXPECTED);
    return NeedNumber(MLTEXT_BAD_NUMBER);
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
        Refuse(MLTEXT_BAD_HEADER);
    }
    NeedThisToken(".", MLTEXT_BAD_HEADER);
    if (!scanner->ReadInteger(MinorVersion()))
    {
        Refuse(MLTEXT_BAD_HEADER);
    }
    NeedThisToken("}", MLTEXT_BAD_HEADER);
    if (major > newestMajor || (major == newestMajor && minor > newestMinor))
    {
        Refuse(MLTEXT_NEWER_VERSION);
    }
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
    if (!hasHeader)
    {
        observer->GoToFirstBlock(token);
        if (NextToken())
        {
            ReadBlock(library);
        }
    }
    while (NextToken())
    {
        const auto readBlock = [&]
        {
            if (!IsSign('{'))
            {
                Refuse(MLTEXT_BRACKET_EXPECTED);
            }
            NeedToken();
            ReadBlock(library);
        };
        if (!Attempt(readBlock))
        {
            observer->GoToNextBlock(token);
        }
    }
}

// Stands behind the block's word.
void CMaterialReader::ReadBlock(CFakeMaterialLib& library)
{
    const bool isDielectric = token == dielectricWord;
    if (!isDielectric && token != metalWord)
    {
        return; // the word of an unknown block is passed over
    }
    Tell(&IReadObserver::OnBlock, token);
    const std::string_view known = isDielectric ? dielectricWord : metalWord;
    if (blockWord.empty())
    {
        blockWord = known;
    }
    if (blockWord != known)
    {
        static_cast<void>(Attempt([this] { Refuse(MLTEXT_MIXED_KINDS); })); // read it all the same
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
    return ReadRecords(material, dielectricKeys);
}

bool CMaterialReader::ReadMetal(CMaterial& material)
{
    material.SetKind(MLMATERIAL_METAL);
    return ReadRecords(material, metalKeys);
}

// Reads up to the "}" of the block. Whether the material is without an error.
bool CMaterialReader::ReadRecords(CMaterial& material, std::span<const MLRECORDKEY> keys)
{
    bool isWhole = true;
    bool isOpen = true;
    while (isOpen)
    {
        if (!Attempt([&] { isOpen = ReadRecord(material, keys); }))
        {
            isWhole = false;
            isOpen = observer->GoToNextRecord(token);
        }
    }
    return isWhole;
}

// False at the "}" of the block.
bool CMaterialReader::ReadRecord(CMaterial& material, std::span<const MLRECORDKEY> keys)
{
    NeedToken();
    if (IsSign('}'))
    {
        return false;
    }
    if (!IsSign('('))
    {
        Refuse(MLTEXT_BRACKET_EXPECTED);
    }
    NeedToken();
    Tell(&IReadObserver::OnRecord, token);
    const auto key = std::find_if(keys.begin(), keys.end(),
                                  [this](const MLRECORDKEY& each)
                                  { return each.word.front() == token.front() && each.word == token; });
    if (key != keys.end())
    {
        if (const auto* const table = std::get_if<TableValue>(&key->value))
        {
            Tell(&IReadObserver::OnTable, token);
            ReadTable(material.MakeTable(table->tableKind));
            return true;
        }
        ReadValue(material, *key);
    }
    NeedSign(')', MLTEXT_BRACKET_EXPECTED); // a word alone, "(FOO)", passes
    return true;
}

void CMaterialReader::ReadValue(CMaterial& material, const MLRECORDKEY& key)
{
    if (const auto* number = std::get_if<NumberValue>(&key.value))
    {
        material.SetAttribute(number->attribute, NeedAssignedNumber());
        return;
    }
    NeedSign('=', MLTEXT_EQUALS_EXPECTED);
    if (const auto* text = std::get_if<TextValue>(&key.value))
    {
        const std::string_view quoted = NeedQuoted();
        Tell(&IReadObserver::OnText, quoted);
        (material.*text->set)(quoted);
    }
    else
    {
        NeedToken();
        Tell(&IReadObserver::OnTechnology, token);
        material.SetIntAttribute(MLATTR_TECHNOLOGY,
                                 technologies->GetTechnologyId(std::string(token).c_str()));
    }
}

// Reads the body of a table up to its ")" or the end of the text.
void CMaterialReader::ReadTable(CMaterialTable& table)
{
    bool isOpen = NextToken();
    while (isOpen && !IsSign(')'))
    {
        if (token == "TABLE")
        {
            NeedSign('=', MLTEXT_EQUALS_EXPECTED);
            isOpen = ReadRows(table);
            continue;
        }
        if (token == "TEMPERATURE")
        {
            table.SetTemperature(NeedAssignedNumber());
        }
        else if (token == "VALUE")
        {
            Tell(&IReadObserver::OnSingleValue, token);
            table.SetSingleValue(NeedAssignedNumber());
        }
        else
        {
            Refuse(MLTEXT_UNKNOWN_TABLE_ITEM);
        }
        isOpen = NextToken();
    }
}

// Reads up to the first token that is no row's frequency; false at the end of the text.
bool CMaterialReader::ReadRows(CMaterialTable& table)
{
    MLTBLENTRY row{};
    while (NextToken())
    {
        if (IsSign(')') || !ParseEngineeringNumber(token, &row.frequency))
        {
            return true;
        }
        Tell(&IReadObserver::OnRow, token);
        row.value = NeedNumber(MLTEXT_FREQUENCY_WITHOUT_VALUE);
        table.AddEntry(row);
    }
    return false;
}
