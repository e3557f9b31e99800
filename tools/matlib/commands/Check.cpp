#include "tools/matlib/CFailure.h"
#include "tools/matlib/Console.h"
#include "tools/matlib/Json.h"
#include "tools/matlib/LibraryMessages.h"
#include "tools/matlib/Platform.h"
#include "tools/matlib/Wording.h"
#include "tools/matlib/commands/Commands.h"

#include "MaterialLibrary/IMaterial.h"

namespace
{
struct Verdict
{
    std::string path;
    std::optional<FileProblem> problem; // nothing: the file is good
    int dielectrics = 0;
    int metals = 0;
};

Verdict CheckFile(const std::string& path, ILibraryHost& host)
{
    if (const char* const reason = DescribeUnreadable(QueryPath(path.c_str())))
    {
        return {path, FileProblem{{}, {}, reason}};
    }
    const LibraryPtr library = MakeLibrary(host, {path});
    for (const std::string& message : host.TakeMessages())
    {
        if (auto problem = FindFileProblem(message, path))
        {
            return {path, std::move(problem)};
        }
    }
    Verdict verdict{path, {}};
    for (int index = library->GetMaterialCount() - 1; index >= 0; --index)
    {
        ++(library->GetMaterial(index)->GetKind() == MLMATERIAL_METAL ? verdict.metals : verdict.dielectrics);
    }
    return verdict;
}

std::string DescribeCounts(const Verdict& verdict)
{
    if (verdict.metals > 0)
    {
        return FormatCount(verdict.metals, "metal");
    }
    return verdict.dielectrics > 0 ? FormatCount(verdict.dielectrics, "dielectric") : "no materials";
}

std::string RenderVerdict(const Verdict& verdict)
{
    const std::string path = MakePrintable(verdict.path);
    if (verdict.problem)
    {
        const auto& [line, column, reason] = *verdict.problem;
        const std::string place =
            line && column ? ":" + std::to_string(*line) + ":" + std::to_string(*column) : "";
        return path + place + ": bad: " + reason + "\n";
    }
    return path + ": good, " + DescribeCounts(verdict) + "\n";
}

Json VerdictAsJson(const Verdict& verdict)
{
    Json json = {{"path", verdict.path}, {"good", !verdict.problem.has_value()}};
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
    return json;
}
} // namespace

int RunCheck(const Options& options, ILibraryHost& host)
{
    std::string text;
    Json list = Json::array();
    bool allGood = true;
    for (const std::string& path : options.filesToCheck)
    {
        const Verdict verdict = CheckFile(path, host);
        allGood = allGood && !verdict.problem;
        text += RenderVerdict(verdict);
        list.push_back(VerdictAsJson(verdict));
    }
    PrintOutput(options.json ? RenderJson(list) : text);
    return allGood ? exitFine : exitFailed;
}
