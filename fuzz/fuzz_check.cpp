// Any bytes as a material file for its author: refused exactly where the library refuses them.
#include "model/CFakeMaterialLib.h"
#include "reader/Keywords.h"
#include "reader/LoadMaterialFile.h"
#include "shared/MessageManager/ISystemMessageBox.h"
#include "shared/Misc_String/EngineeringNumber.h"
#include "tools/matlib/LibraryMessages.h"
#include "tools/matlib/check/CNameCheck.h"
#include "tools/matlib/check/CWarnings.h"
#include "tools/matlib/check/FindWarnings.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>

namespace
{
class LastMessage final : public msg::ISystemMessageBox
{
public:
    int Show(msg::WindowHandle, const char* message, const char*, unsigned) override
    {
        text = message;
        return msg::answerOk;
    }
    [[nodiscard]] msg::WindowHandle FindMainWindow() override { return nullptr; }
    [[nodiscard]] std::string GetApplicationName() override { return "fuzz"; }
    [[nodiscard]] std::string GetExecutablePath() override { return {}; }

    std::string text;
};

void Require(bool condition)
{
    if (!condition)
    {
        std::abort();
    }
}

void RequireSameError(const std::vector<Finding>& errors, const FileProblem& problem)
{
    Require(!errors.empty());
    Require(errors.front().library->place == Place{*problem.line, *problem.column});
    Require(errors.front().library->reason == problem.reason);
}
// Each finding has a place in the text and something to say.
void RequirePlaces(const std::vector<Finding>& findings, const std::string& text)
{
    const CSourceLines lines(text);
    for (const Finding& finding : findings)
    {
        Require(finding.where.offset + finding.where.length <= text.size() && !finding.text.empty());
        Require(!finding.note || finding.note->where.offset + finding.note->where.length <= text.size());
        Require(lines.PlaceOf(finding.where.offset).column > 0);
    }
}
// Each row has the word that its frequency was read from.
void RequireWords(const ParsedMaterial&, const ParsedTables& parsed)
{
    for (const ParsedTable& table : parsed.tables)
    {
        Require(table.words.size() == table.rows.size());
        for (std::size_t i = 0; i < table.rows.size(); ++i)
        {
            double frequency = 0.0;
            Require(table.words[i] == keyword::value || (ParseEngineeringNumber(table.words[i], &frequency) &&
                                                         frequency == table.rows[i].frequency));
        }
    }
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static LastMessage message;
    msg::ReplaceSystemMessageBox(&message);
    std::string text(reinterpret_cast<const char*>(data), size);
    CFakeMaterialLib library;
    const bool loaded = LoadMaterialText(library, text, "fuzz.mat");
    const std::string padded = PadText(text);
    CFakeMaterialLib others;
    const ParsedFile first = ParseMaterialFile(padded, AfterError::stop, others, RequireWords);
    CFitCheck fits;
    const auto [whole, warnings] = FindWarnings(padded, AfterError::goOn, {&fits, 1});
    Require(padded == PadText(text));
    Require(first.errors.size() == (loaded ? 0 : 1));
    Require(whole.errors.empty() == loaded && whole.errors.size() <= size + 1);
    if (loaded)
    {
        Require(static_cast<int>(first.materials.size()) == library.GetMaterialCount());
    }
    else
    {
        const auto problem = FindFileProblem(message.text, "fuzz.mat");
        RequireSameError(first.errors, problem.value());
        RequireSameError(whole.errors, problem.value());
    }
    RequirePlaces(whole.errors, text);
    RequirePlaces(warnings, text);
    CWarnings sameNames(padded);
    CNameCheck().Check(sameNames, "fuzz.mat", whole.materials);
    RequirePlaces(sameNames.findings, text);
    return 0;
}
