#include "tools/matlib/check/ParsedFile.h"

#include "model/CFakeMaterialLib.h"
#include "model/CMaterial.h"
#include "reader/CMaterialReader.h"
#include "reader/IReadObserver.h"
#include "reader/ReadError.h"
#include "tools/matlib/LibraryMessages.h"

#include <algorithm>

namespace
{
bool IsBlockWord(std::string_view word)
{
    return word == "DIELECTRIC" || word == "METAL";
}

// Whether the quotes in the word leave a text open, or close one that was.
bool HasOpenQuote(std::string_view word)
{
    return std::ranges::count(word, '"') % 2 != 0;
}

bool IsSign(std::string_view token, char sign)
{
    return token.size() == 1 && token.front() == sign;
}

// Keeps what the reader meets, and finds where reading goes on behind an error.
class CFileObserver final : public IReadObserver
{
public:
    CFileObserver(CTokenScanner& tokenScanner, const char* text, AfterError whatAfterError)
        : scanner(tokenScanner), start(text), afterError(whatAfterError)
    {
    }

    void OnBlock(std::string_view, Place place) override
    {
        material = {};
        material.place = place;
    }
    void OnRecord(std::string_view key, Place place) override
    {
        record = place;
        if (key == "THICKNESS")
        {
            material.thickness = ParsedNumber{0.0, place};
        }
    }
    void OnText(std::string_view text, Place) override
    {
        if (text.find_first_of("\r\n") != std::string_view::npos)
        {
            file.textsOverLines.push_back(record);
        }
    }
    void OnTechnology(std::string_view word, Place place) override
    {
        material.technology = ParsedText{std::string(word), place};
    }
    void OnTable(std::string_view, Place place) override { material.tables.emplace_back().place = place; }
    void OnRow(std::string_view frequency, Place place) override
    {
        material.tables.back().rows.push_back({0.0, 0.0, std::string(frequency), place});
    }
    void OnSingleValue(std::string_view, Place place) override
    {
        material.tables.back().rows = {{0.0, 0.0, {}, place}};
    }
    void OnMaterial(CMaterial& read) override;

    void OnError(MLTEXTID reason, Place place) override
    {
        file.errors.push_back({true, place, "format", std::string(GetLibraryText(reason))});
    }
    [[nodiscard]] bool GoesOn() const override { return afterError == AfterError::goOn; }
    [[nodiscard]] bool GoToNextRecord(std::string_view token) override;
    void GoToNextBlock(std::string_view token) override;
    [[nodiscard]] bool GoToFirstBlock(std::string_view token) override;

    ParsedFile file;

private:
    [[nodiscard]] bool NextOutsideQuotes(std::string_view& token);

    CTokenScanner& scanner;
    const char* start;
    AfterError afterError;
    ParsedMaterial material; // the one that is being read
    Place record;
};

// The values are those that the library would have.
void CFileObserver::OnMaterial(CMaterial& read)
{
    material.kind = static_cast<MLMATERIALKIND>(read.GetKind());
    material.name = read.GetName();
    if (material.thickness && !read.GetAttribute(MLATTR_THICKNESS, &material.thickness->value))
    {
        material.thickness.reset();
    }
    for (int i = 0; i < static_cast<int>(material.tables.size()); ++i)
    {
        const IMaterialTable& values = *read.GetTableAt(i);
        ParsedTable& table = material.tables[static_cast<std::size_t>(i)];
        table.kind = static_cast<MLTABLEKIND>(values.GetTableKind());
        table.temperature = values.GetTemperature();
        for (int row = 0; row < values.GetEntryCount(); ++row)
        {
            ParsedRow& parsed = table.rows[static_cast<std::size_t>(row)];
            parsed.frequency = values.GetEntry(row).frequency;
            parsed.value = values.GetEntry(row).value;
        }
    }
    file.materials.push_back(std::move(material));
}

// The next token that is no part of a text in quotes, where the last token may have begun one.
bool CFileObserver::NextOutsideQuotes(std::string_view& token)
{
    const unsigned line = scanner.GetLine();
    for (bool isInside = HasOpenQuote(token);
         isInside && scanner.GetLine() == line && scanner.NextToken(token);)
    {
        isInside = !HasOpenQuote(token);
    }
    std::string_view quoted;
    while (scanner.ReadQuoted(quoted))
    {
    }
    return scanner.NextToken(token);
}

bool CFileObserver::GoToNextRecord(std::string_view token)
{
    for (bool found = !token.empty(); found; found = NextOutsideQuotes(token))
    {
        if (IsSign(token, '(') || IsSign(token, '{'))
        {
            scanner.GoBackTo(token);
            return IsSign(token, '(');
        }
        if (IsSign(token, ')') || IsSign(token, '}'))
        {
            return IsSign(token, ')');
        }
    }
    return false;
}

void CFileObserver::GoToNextBlock(std::string_view token)
{
    while (NextOutsideQuotes(token))
    {
        if (IsSign(token, '{'))
        {
            scanner.GoBackTo(token);
            return;
        }
    }
}

// The error may have hidden the first material's "{".
bool CFileObserver::GoToFirstBlock(std::string_view token)
{
    scanner.Attach(start);
    while (NextOutsideQuotes(token))
    {
        if (IsBlockWord(token))
        {
            scanner.GoBackTo(token);
            return true;
        }
    }
    return false;
}
} // namespace

ParsedFile ParseMaterialFile(std::string text, AfterError afterError)
{
    text.append(1 + textPadding, '\0');
    CTokenScanner scanner;
    scanner.Attach(text.data());
    CFileObserver observer(scanner, text.data(), afterError);
    CFakeMaterialLib library;
    CMaterialReader reader(scanner, &observer);
    try
    {
        reader.ReadLibrary(library);
    }
    catch (const CParseError&)
    {
        // the errors tell
    }
    return std::move(observer.file);
}
