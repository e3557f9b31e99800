#include "tools/matlib/check/CMaterialFileParser.h"

#include "shared/Misc_String/EngineeringNumber.h"
#include "tools/matlib/check/ReasonText.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace
{
struct TableKey
{
    std::string_view word;
    MLMATERIALKIND material;
    MLTABLEKIND table;
};
constexpr TableKey tableKeys[] = {
    {"ER", MLMATERIAL_DIELECTRIC, MLTABLE_ER},
    {"LOSSTANGENT", MLMATERIAL_DIELECTRIC, MLTABLE_LOSS_TANGENT},
    {"ROUGHTOP", MLMATERIAL_METAL, MLTABLE_ROUGHNESS_TOP},
    {"ROUGHBTM", MLMATERIAL_METAL, MLTABLE_ROUGHNESS_BOTTOM},
};

constexpr std::array<std::string_view, 4> textKeys = {"NAME", "TYPE", "VENDOR", "COMMENT"};

bool IsBlockWord(std::string_view word)
{
    return word == "DIELECTRIC" || word == "METAL";
}

// Whether the quotes in the word leave a text open, or close one that was.
bool HasOpenQuote(std::string_view word)
{
    return std::ranges::count(word, '"') % 2 != 0;
}

bool IsSimpleKey(std::string_view word, MLMATERIALKIND kind)
{
    const bool isOfKind =
        kind == MLMATERIAL_METAL ? word == "RB" : word == "THICKNESS" || word == "TECHNOLOGY";
    return isOfKind || std::ranges::find(textKeys, word) != textKeys.end();
}
} // namespace

CMaterialFileParser::CMaterialFileParser(char* text, AfterError whatAfterError)
    : start(text), afterError(whatAfterError)
{
    scanner.Attach(text);
}

ParsedFile CMaterialFileParser::Parse(char* text, AfterError afterError)
{
    CMaterialFileParser parser(text, afterError);
    try
    {
        parser.ParseFile();
    }
    catch (const Refused&)
    {
        // the errors tell
    }
    parser.scanner.Detach();
    return std::move(parser.file);
}

bool CMaterialFileParser::Next()
{
    if (held)
    {
        held = false;
        return true;
    }
    return scanner.NextToken(token);
}

void CMaterialFileParser::Need()
{
    if (!Next())
    {
        Refuse(MLTEXT_MISSING_VALUE);
    }
}

void CMaterialFileParser::NeedThis(std::string_view expected, MLTEXTID reason)
{
    if (!Next() || token != expected)
    {
        Refuse(reason);
    }
}

std::string CMaterialFileParser::NeedQuoted(Place record)
{
    std::string_view text;
    if (!scanner.ReadQuoted(text))
    {
        Refuse(MLTEXT_MISSING_VALUE);
    }
    if (text.find_first_of("\r\n") != std::string_view::npos)
    {
        file.textsOverLines.push_back(record);
    }
    return std::string(text);
}

double CMaterialFileParser::NeedNumber(MLTEXTID reason)
{
    double value = 0.0;
    if (!scanner.ReadNumber(value))
    {
        Refuse(reason);
    }
    return value;
}

Place CMaterialFileParser::PlaceOfToken() const
{
    return {scanner.GetLine() + 1, scanner.GetColumn() - static_cast<unsigned>(token.size()) + 1};
}

void CMaterialFileParser::NoteError(MLTEXTID reason)
{
    file.errors.push_back(
        {true, {scanner.GetLine() + 1, scanner.GetColumn()}, "format", std::string(GetReasonText(reason))});
}

void CMaterialFileParser::Refuse(MLTEXTID reason)
{
    NoteError(reason);
    throw Refused();
}

void CMaterialFileParser::ParseFile()
{
    try
    {
        scanner.SetDelimiters("{}()=.");
        ParseHeader();
        ParseVersion();
        scanner.SetDelimiters("{}()=");
    }
    catch (const Refused&)
    {
        GoOnAtFirstMaterial();
    }
    ParseBlocks();
}

void CMaterialFileParser::ParseHeader()
{
    for (const std::string_view expected : {"{", "MAT_FILE", "}"})
    {
        NeedThis(expected, MLTEXT_BAD_HEADER);
    }
}

void CMaterialFileParser::ParseVersion()
{
    const auto readInteger = [this]
    {
        std::uint32_t number = 0;
        if (!scanner.ReadInteger(number))
        {
            Refuse(MLTEXT_BAD_HEADER);
        }
        return number;
    };
    for (const std::string_view expected : {"{", "VERSION", "="})
    {
        NeedThis(expected, MLTEXT_BAD_HEADER);
    }
    const std::uint32_t major = readInteger();
    NeedThis(".", MLTEXT_BAD_HEADER);
    const std::uint32_t minor = readInteger();
    NeedThis("}", MLTEXT_BAD_HEADER);
    if (major > 1 || (major == 1 && minor > 0))
    {
        Refuse(MLTEXT_NEWER_VERSION);
    }
}

void CMaterialFileParser::ParseBlocks()
{
    while (Next())
    {
        try
        {
            if (!IsSign('{'))
            {
                Refuse(MLTEXT_BRACKET_EXPECTED);
            }
            Need();
            ParseBlock();
        }
        catch (const Refused&)
        {
            GoOnAtNextBlock();
        }
    }
}

void CMaterialFileParser::ParseBlock()
{
    ParsedMaterial material;
    if (!IsBlockWord(token))
    {
        return; // the word of an unknown block is passed over
    }
    material.kind = token == "METAL" ? MLMATERIAL_METAL : MLMATERIAL_DIELECTRIC;
    material.place = PlaceOfToken();
    if (!kindOfFile)
    {
        kindOfFile = material.kind;
    }
    else if (*kindOfFile != material.kind)
    {
        NoteError(MLTEXT_MIXED_KINDS);
        if (afterError == AfterError::stop)
        {
            throw Refused();
        }
    }
    if (ParseRecords(material))
    {
        file.materials.push_back(std::move(material));
    }
}

// Whether the material is without an error.
bool CMaterialFileParser::ParseRecords(ParsedMaterial& material)
{
    const std::size_t errorsBefore = file.errors.size();
    for (;;)
    {
        try
        {
            Need();
            if (IsSign('}'))
            {
                return file.errors.size() == errorsBefore;
            }
            if (!IsSign('('))
            {
                Refuse(MLTEXT_BRACKET_EXPECTED);
            }
            Need();
            ParseRecord(material);
        }
        catch (const Refused&)
        {
            if (!GoOnAtNextRecord())
            {
                return false;
            }
        }
    }
}

void CMaterialFileParser::ParseRecord(ParsedMaterial& material)
{
    const ParsedText key{std::string(token), PlaceOfToken()};
    const auto tableKey =
        std::ranges::find_if(tableKeys, [&](const TableKey& each)
                             { return each.word == key.text && each.material == material.kind; });
    if (tableKey != std::end(tableKeys))
    {
        ParsedTable& table = material.tables.emplace_back();
        table.kind = tableKey->table;
        table.place = key.place;
        ParseTable(table);
        return;
    }
    if (IsSimpleKey(key.text, material.kind))
    {
        ParseSimpleRecord(material, key);
    }
    NeedThis(")", MLTEXT_BRACKET_EXPECTED);
}

void CMaterialFileParser::ParseSimpleRecord(ParsedMaterial& material, const ParsedText& key)
{
    NeedThis("=", MLTEXT_EQUALS_EXPECTED);
    if (key.text == "THICKNESS")
    {
        material.thickness = ParsedNumber{NeedNumber(MLTEXT_BAD_NUMBER), key.place};
    }
    else if (key.text == "RB")
    {
        static_cast<void>(NeedNumber(MLTEXT_BAD_NUMBER));
    }
    else if (key.text == "TECHNOLOGY")
    {
        Need();
        material.technology = ParsedText{std::string(token), PlaceOfToken()};
    }
    else
    {
        std::string text = NeedQuoted(key.place);
        if (key.text == "NAME")
        {
            material.name = std::move(text);
        }
    }
}

void CMaterialFileParser::ParseTable(ParsedTable& table)
{
    while (Next() && !IsSign(')'))
    {
        const std::string item(token);
        if (item != "TABLE" && item != "TEMPERATURE" && item != "VALUE")
        {
            Refuse(MLTEXT_UNKNOWN_TABLE_ITEM);
        }
        const Place place = PlaceOfToken();
        NeedThis("=", MLTEXT_EQUALS_EXPECTED);
        if (item == "TABLE")
        {
            ParseRows(table);
        }
        else if (item == "TEMPERATURE")
        {
            table.temperature = NeedNumber(MLTEXT_BAD_NUMBER);
        }
        else
        {
            constexpr double singleValueFrequency = 1e9;
            table.rows = {{singleValueFrequency, NeedNumber(MLTEXT_BAD_NUMBER), {}, place}};
        }
    }
}

void CMaterialFileParser::ParseRows(ParsedTable& table)
{
    while (Next())
    {
        ParsedRow row;
        if (IsSign(')') || !ParseEngineeringNumber(token, &row.frequency))
        {
            Hold();
            return;
        }
        row.frequencyText = token;
        row.place = PlaceOfToken();
        row.value = NeedNumber(MLTEXT_FREQUENCY_WITHOUT_VALUE);
        table.rows.push_back(std::move(row));
    }
}

// The next token that is no part of a text in quotes, where the last token may have begun one.
bool CMaterialFileParser::NextOutsideQuotes()
{
    const unsigned line = scanner.GetLine();
    for (bool isInside = HasOpenQuote(token); isInside && scanner.GetLine() == line && Next();)
    {
        isInside = !HasOpenQuote(token);
    }
    std::string_view quoted;
    while (scanner.ReadQuoted(quoted))
    {
    }
    return Next();
}

// From an error in the header, which may have hidden the first material's "{", to that material.
void CMaterialFileParser::GoOnAtFirstMaterial()
{
    if (afterError == AfterError::stop)
    {
        throw Refused();
    }
    scanner.Attach(start);
    scanner.SetDelimiters("{}()=");
    while (NextOutsideQuotes())
    {
        if (IsBlockWord(token))
        {
            ParseBlock();
            return;
        }
    }
}

// From an error outside a material, to before the next "{".
void CMaterialFileParser::GoOnAtNextBlock()
{
    if (afterError == AfterError::stop)
    {
        throw Refused();
    }
    while (NextOutsideQuotes())
    {
        if (IsSign('{'))
        {
            Hold();
            return;
        }
    }
}

// From an error inside a material, behind the end of its record. False when the material ends there too.
bool CMaterialFileParser::GoOnAtNextRecord()
{
    if (afterError == AfterError::stop)
    {
        throw Refused();
    }
    for (bool found = !token.empty(); found; found = NextOutsideQuotes())
    {
        if (IsSign('(') || IsSign('{'))
        {
            Hold();
            return IsSign('(');
        }
        if (IsSign(')') || IsSign('}'))
        {
            return IsSign(')');
        }
    }
    return false;
}
