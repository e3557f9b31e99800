#include "tools/matlib/check/ParsedFile.h"

#include "model/CFakeMaterialLib.h"
#include "model/CMaterial.h"
#include "model/PropertyAnswers.h"
#include "reader/CMaterialReader.h"
#include "reader/IReadObserver.h"
#include "reader/Keywords.h"
#include "reader/LoadMaterialFile.h"
#include "reader/ReadError.h"
#include "tools/matlib/LibraryMessages.h"
#include "tools/matlib/check/ExplainError.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <set>

namespace
{
constexpr std::size_t lengthOfSmall = 512; // a material's text

bool IsBlockWord(std::string_view word)
{
    return word == keyword::dielectric || word == keyword::metal;
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

// Whether a text may hold what its author does not see.
bool IsOdd(std::string_view text)
{
    bool isOdd = false;
    for (const char c : text) // without a way out, so that many are looked at together
    {
        isOdd |= static_cast<signed char>(c) < ' ';
    }
    return isOdd;
}

// Keeps what the reader meets, and finds where reading goes on behind an error.
class CFileObserver final : public IReadObserver
{
public:
    CFileObserver(CTokenScanner& tokenScanner, std::string_view wholeFile, AfterError whatAfterError,
                  const MaterialListener& onMaterial)
        : scanner(tokenScanner), start(wholeFile.data()), afterError(whatAfterError), listener(onMaterial)
    {
        context.wholeFile = wholeFile;
        file.materials.reserve(wholeFile.size() / lengthOfSmall);
    }

    void OnBlock(std::string_view word) override;
    void OnUnknownBlock(std::string_view word) override
    {
        context.unknownBlock = word;
        context.block = {};
    }
    void OnRecord(std::string_view key) override;
    void OnText(std::string_view text) override;
    void OnTechnology(std::string_view word) override
    {
        context.technology = word;
        material.technology = word;
    }
    void OnTable(std::string_view key) override;
    void OnRow(std::string_view frequency) override
    {
        context.frequency = frequency;
        words.push_back(frequency);
    }
    void OnSingleValue(std::string_view word) override
    {
        words.resize(firstWords.back());
        words.push_back(word);
    }
    void OnMaterial(CMaterial& read) override;

    void OnError(const BrokenRule& broken) override
    {
        if (file.errors.empty()) // not before: a good file need not be searched
        {
            context.text = context.wholeFile.substr(0, context.wholeFile.find('\0'));
        }
        Finding& error = file.errors.emplace_back(ExplainError(context, broken));
        error.library = LibraryMessage{broken.place, GetLibraryText(broken.reason)};
        context.unknownBlock = {};
    }
    [[nodiscard]] bool GoesOn() const override { return afterError == AfterError::goOn; }
    [[nodiscard]] bool GoToNextRecord(std::string_view token) override;
    void GoToNextBlock(std::string_view token) override;
    [[nodiscard]] bool GoToFirstBlock(std::string_view token) override;

    ParsedFile file;

private:
    void PlaceTables(std::span<const CMaterialTable* const> read);
    [[nodiscard]] bool NextOutsideQuotes(std::string_view& token);

    CTokenScanner& scanner;
    const char* start;
    AfterError afterError;
    const MaterialListener& listener;
    ParsedMaterial material; // the one that is being read; what follows is its own
    std::vector<ParsedTable> tables;
    std::vector<std::string_view> words;
    std::vector<std::size_t> firstWords; // where those of each table begin
    ErrorContext context;
};

void CFileObserver::OnBlock(std::string_view word)
{
    material = {};
    material.block = word;
    tables.clear();
    firstWords.clear();
    words.clear();
    context.block = word;
    context.unknownBlock = {};
    context.record = {};
    context.quoted = {};
    context.firstBlock = context.firstBlock.empty() ? word : context.firstBlock;
}

void CFileObserver::OnRecord(std::string_view key)
{
    context.record = key;
    context.quoted = {};
    context.technology = {};
    context.frequency = {};
    if (key == "THICKNESS")
    {
        material.thicknessKey = key;
    }
}

void CFileObserver::OnText(std::string_view text)
{
    context.quoted = text;
    if (context.record == "NAME")
    {
        material.name = text;
    }
    if (IsOdd(text))
    {
        file.texts.push_back(text);
    }
}

void CFileObserver::OnTable(std::string_view key)
{
    tables.emplace_back().key = key;
    firstWords.push_back(words.size());
}

// Between which temperatures the library derives values.
std::vector<ParsedBetween> DeriveBetween(const CMaterial& material, MLTABLEKIND kind)
{
    std::set<double> temperatures;
    for (const CMaterialTable* const table : material.GetTables())
    {
        if (table->GetTableKind() == kind && std::isfinite(table->GetTemperature()))
        {
            temperatures.insert(table->GetTemperature());
        }
    }
    std::vector<ParsedBetween> betweens;
    for (auto upper = temperatures.begin(); upper != temperatures.end(); ++upper)
    {
        const double middle = upper == temperatures.begin() ? *upper : (*std::prev(upper) + *upper) / 2;
        const RowsForTemperature derived = DeriveRows(material.GetTables(), kind, middle);
        if (derived.source == TemperatureSource::between &&
            FindTable(material.GetTables(), kind, middle) == nullptr)
        {
            betweens.push_back({kind, middle, derived.rows.at(0).value});
        }
    }
    return betweens;
}

void CFileObserver::PlaceTables(std::span<const CMaterialTable* const> read)
{
    firstWords.push_back(words.size());
    for (std::size_t i = 0; i < tables.size(); ++i)
    {
        tables[i].kind = static_cast<MLTABLEKIND>(read[i]->GetTableKind());
        tables[i].temperature = read[i]->GetTemperature();
        tables[i].rows = read[i]->GetEntries();
        tables[i].words = std::span(words).subspan(firstWords[i], firstWords[i + 1] - firstWords[i]);
    }
}

// The values are those that the library would have.
void CFileObserver::OnMaterial(CMaterial& read)
{
    material.kind = static_cast<MLMATERIALKIND>(read.GetKind());
    double thickness = 0.0;
    if (read.GetAttribute(MLATTR_THICKNESS, &thickness))
    {
        material.thickness = thickness;
    }
    if (listener)
    {
        PlaceTables(read.GetTables());
        std::vector<ParsedBetween> betweens;
        if (tables.size() > 2)
        {
            for (const MLTABLEKIND kind : {MLTABLE_ER, MLTABLE_LOSS_TANGENT})
            {
                std::ranges::move(DeriveBetween(read, kind), std::back_inserter(betweens));
            }
        }
        listener(material, {tables, betweens});
    }
    file.materials.push_back(material);
    context.block = {};
    context.quoted = {};
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

ParsedFile ParseMaterialFile(const std::string& paddedText, AfterError afterError, CFakeMaterialLib& library,
                             const MaterialListener& onMaterial)
{
    CTokenScanner scanner;
    scanner.Attach(paddedText.data());
    const std::string_view wholeFile(paddedText.data(), paddedText.size() - PadText({}).size());
    CFileObserver observer(scanner, wholeFile, afterError, onMaterial);
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

ParsedFile ParseMaterialFile(const std::string& paddedText, AfterError afterError)
{
    CFakeMaterialLib library;
    return ParseMaterialFile(paddedText, afterError, library, {});
}
