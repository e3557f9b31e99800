#include "tools/matlib/Console.h"
#include "tools/matlib/FindingOutput.h"
#include "tools/matlib/InputFiles.h"
#include "tools/matlib/Platform.h"
#include "tools/matlib/Wording.h"
#include "tools/matlib/check/Rules.h"
#include "tools/matlib/commands/Commands.h"

#include <algorithm>
#include <cstdlib>

namespace
{
struct Verdict
{
    std::string path;
    FileText text;
    CheckedText checked;
};

bool Contains(const std::vector<std::string>& rules, std::string_view wanted)
{
    return std::ranges::find(rules, wanted) != rules.end();
}

Severity SeverityOf(const Finding& finding, const Options& options)
{
    const bool counts = finding.isError || options.strict || Contains(options.deniedRules, finding.rule);
    return counts ? Severity::error : Severity::warning;
}

bool IsGood(const Verdict& verdict, const Options& options)
{
    return verdict.text.problem.empty() &&
           std::ranges::none_of(verdict.checked.findings, [&](const Finding& finding)
                                { return SeverityOf(finding, options) == Severity::error; });
}

std::string DescribeCounts(const CheckedText& checked)
{
    std::string text = "no materials";
    if (checked.metals > 0)
    {
        text = FormatCount(checked.metals, "metal");
    }
    else if (checked.dielectrics > 0)
    {
        text = FormatCount(checked.dielectrics, "dielectric");
    }
    return checked.findings.empty()
               ? text
               : text + ", " + FormatCount(static_cast<int>(checked.findings.size()), "warning");
}

CSourceLines SplitIntoLines(const Verdict& verdict)
{
    return CSourceLines(verdict.checked.findings.empty() ? "" : verdict.text.padded.c_str());
}

std::string RenderVerdict(const Verdict& verdict, const Options& options, const Palette& palette)
{
    const std::string path = MakePrintable(verdict.path);
    if (!verdict.text.problem.empty())
    {
        return path + ": error: " + verdict.text.problem + "\n";
    }
    const CSourceLines lines = SplitIntoLines(verdict);
    std::string text;
    for (const Finding& finding : verdict.checked.findings)
    {
        text += RenderFinding(verdict.path, lines, finding, SeverityOf(finding, options), palette);
    }
    return IsGood(verdict, options) ? text + path + ": good, " + DescribeCounts(verdict.checked) + "\n"
                                    : text;
}

Json VerdictAsJson(const Verdict& verdict, const Options& options)
{
    Json json = {{"path", verdict.path}, {"good", IsGood(verdict, options)}};
    if (const auto& refusal = verdict.checked.refusal)
    {
        json["line"] = refusal->place.line;
        json["column"] = refusal->place.column;
        json["reason"] = refusal->reason;
    }
    else if (!verdict.text.problem.empty())
    {
        json["line"] = nullptr;
        json["column"] = nullptr;
        json["reason"] = verdict.text.problem;
    }
    else
    {
        json["dielectrics"] = verdict.checked.dielectrics;
        json["metals"] = verdict.checked.metals;
    }
    json["findings"] = Json::array();
    const CSourceLines lines = SplitIntoLines(verdict);
    for (const Finding& finding : verdict.checked.findings)
    {
        json["findings"].push_back(FindingAsJson(lines, finding, SeverityOf(finding, options)));
    }
    return json;
}

Verdict CheckFile(const std::string& path, const Options& options, CTextChecker& checker)
{
    Verdict verdict{NameInput(path), ReadInput(path), {}};
    if (verdict.text.problem.empty())
    {
        verdict.checked = checker.Check(verdict.path, verdict.text.padded);
        std::erase_if(verdict.checked.findings, [&](const Finding& finding)
                      { return !finding.isError && Contains(options.allowedRules, finding.rule); });
    }
    return verdict;
}

bool WantsColour(Colouring colouring)
{
    const char* const refusal = std::getenv("NO_COLOR");
    const bool isRefused = refusal != nullptr && *refusal != '\0';
    return colouring == Colouring::always ||
           (colouring == Colouring::automatic && !isRefused && CanShowColours());
}
} // namespace

int RunCheck(const Options& options)
{
    if (!options.explainedRule.empty())
    {
        PrintOutput(ExplainRule(options.explainedRule));
        return exitFine;
    }
    std::string text;
    Json list = Json::array();
    bool allGood = true;
    const std::vector<std::string> files = FindFiles(options.files);
    const Palette palette = ChoosePalette(WantsColour(options.colouring));
    CTextChecker checker(options.allErrors ? AfterError::goOn : AfterError::stop);
    CProgress progress = ShowProgress(static_cast<int>(files.size()));
    for (const std::string& path : files)
    {
        const Verdict verdict = CheckFile(path, options, checker);
        allGood = allGood && IsGood(verdict, options);
        if (options.json)
        {
            list.push_back(VerdictAsJson(verdict, options));
        }
        else
        {
            text += RenderVerdict(verdict, options, palette);
        }
        progress.Advance();
    }
    PrintOutput(options.json ? RenderJson(list) : text);
    return allGood ? exitFine : exitFailed;
}
