#include "MaterialLibrary/IMaterial.h"
#include "tools/matlib/CFailure.h"
#include "tools/matlib/Console.h"
#include "tools/matlib/Json.h"
#include "tools/matlib/LibraryMessages.h"
#include "tools/matlib/Platform.h"
#include "tools/matlib/Wording.h"
#include "tools/matlib/check/FindWarnings.h"
#include "tools/matlib/commands/Commands.h"

#include <algorithm>
#include <fstream>
#include <iterator>

namespace
{
struct Verdict
{
    std::string path;
    std::optional<FileProblem> problem; // nothing: the library takes the file
    std::vector<Finding> findings;      // errors that have a place among them
    int dielectrics = 0;
    int metals = 0;
};

bool IsGood(const Verdict& verdict, const Options& options)
{
    return !verdict.problem && (verdict.findings.empty() || !options.strict);
}

// Reads the file once more, for its author.
std::vector<Finding> FindAll(const std::string& path, AfterError afterError)
{
    std::ifstream stream(path, std::ios::binary);
    std::string text{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
    ParsedFile file = ParseMaterialFile(text, afterError);
    std::vector<Finding> findings = FindWarnings(file);
    std::ranges::move(file.errors, std::back_inserter(findings));
    std::ranges::stable_sort(findings, {}, &Finding::place);
    return findings;
}

Verdict CheckFile(const std::string& path, const Options& options, ILibraryHost& host)
{
    if (const char* const reason = DescribeUnreadable(QueryPath(path.c_str())))
    {
        return {path, FileProblem{{}, {}, reason}, {}};
    }
    const LibraryPtr library = MakeLibrary(host, {path});
    Verdict verdict{path, {}, {}};
    for (const std::string& message : host.TakeMessages())
    {
        verdict.problem = verdict.problem ? verdict.problem : FindFileProblem(message, path);
    }
    if (!verdict.problem || verdict.problem->line)
    {
        verdict.findings = FindAll(path, options.allErrors ? AfterError::goOn : AfterError::stop);
    }
    for (int index = library->GetMaterialCount() - 1; index >= 0; --index)
    {
        ++(library->GetMaterial(index)->GetKind() == MLMATERIAL_METAL ? verdict.metals : verdict.dielectrics);
    }
    return verdict;
}

std::string DescribeCounts(const Verdict& verdict)
{
    std::string text = "no materials";
    if (verdict.metals > 0)
    {
        text = FormatCount(verdict.metals, "metal");
    }
    else if (verdict.dielectrics > 0)
    {
        text = FormatCount(verdict.dielectrics, "dielectric");
    }
    return verdict.findings.empty()
               ? text
               : text + ", " + FormatCount(static_cast<int>(verdict.findings.size()), "warning");
}

std::string RenderVerdict(const Verdict& verdict, const Options& options)
{
    const std::string path = MakePrintable(verdict.path);
    std::string text;
    for (const Finding& finding : verdict.findings)
    {
        text += path + ":" + std::to_string(finding.place.line) + ":" + std::to_string(finding.place.column) +
                (finding.isError || options.strict ? ": bad: " : ": warning: ") + finding.text + "\n";
    }
    if (verdict.problem && verdict.findings.empty())
    {
        text += path + ": bad: " + verdict.problem->reason + "\n";
    }
    return IsGood(verdict, options) ? text + path + ": good, " + DescribeCounts(verdict) + "\n" : text;
}

Json FindingAsJson(const Finding& finding)
{
    return {{"severity", finding.isError ? "error" : "warning"},
            {"line", finding.place.line},
            {"column", finding.place.column},
            {"rule", finding.rule},
            {"text", finding.text}};
}

Json VerdictAsJson(const Verdict& verdict, const Options& options)
{
    Json json = {{"path", verdict.path}, {"good", IsGood(verdict, options)}};
    if (verdict.problem)
    {
        const auto& [line, column, reason] = *verdict.problem;
        json["line"] = line ? Json(*line) : Json(nullptr);
        json["column"] = column ? Json(*column) : Json(nullptr);
        json["reason"] = reason;
    }
    else
    {
        json["dielectrics"] = verdict.dielectrics;
        json["metals"] = verdict.metals;
    }
    json["findings"] = Json::array();
    std::ranges::transform(verdict.findings, std::back_inserter(json["findings"]), FindingAsJson);
    return json;
}
} // namespace

int RunCheck(const Options& options, ILibraryHost& host)
{
    std::string text;
    Json list = Json::array();
    bool allGood = true;
    CProgress progress = ShowProgress(static_cast<int>(options.filesToCheck.size()));
    for (const std::string& path : options.filesToCheck)
    {
        const Verdict verdict = CheckFile(path, options, host);
        allGood = allGood && IsGood(verdict, options);
        text += RenderVerdict(verdict, options);
        list.push_back(VerdictAsJson(verdict, options));
        progress.Advance();
    }
    PrintOutput(options.json ? RenderJson(list) : text);
    return allGood ? exitFine : exitFailed;
}
