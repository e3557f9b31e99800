#include "tools/matlib/Console.h"
#include "tools/matlib/FindingOutput.h"
#include "tools/matlib/InputFiles.h"
#include "tools/matlib/OutputFile.h"
#include "tools/matlib/Platform.h"
#include "tools/matlib/Wording.h"
#include "tools/matlib/commands/Commands.h"
#include "writer/FormatMaterialText.h"

namespace
{
struct FormattedFile
{
    std::string path;
    FileText input;
    std::vector<Finding> errors;
    std::string text;    // in the layout
    std::string problem; // what is in the way besides errors; empty: nothing
    std::string outcome; // what became of it; empty: nothing to tell

    [[nodiscard]] bool IsGood() const { return problem.empty() && errors.empty(); }
    [[nodiscard]] bool Changes() const { return text != input.GetText(); }
};

FormattedFile ReadAndFormat(const std::string& path)
{
    FormattedFile file{path, ReadInput(path), {}, {}, {}, {}};
    file.problem = file.input.problem;
    if (file.problem.empty())
    {
        file.errors = ParseMaterialFile(file.input.padded, AfterError::stop).errors;
        file.text = file.errors.empty() ? FormatMaterialText(file.input.GetText()) : "";
    }
    return file;
}

std::string Deliver(const FormattedFile& file, const Options& options)
{
    const std::string& target = options.materialPath.empty() ? file.path : options.materialPath;
    if (target == "-")
    {
        PrintOutput(file.text);
        return {};
    }
    const bool isInPlace = file.path != "-" && IsSameFile(file.path.c_str(), target.c_str());
    if (isInPlace && !file.Changes())
    {
        return MakePrintable(target) + ": unchanged\n";
    }
    const bool mayReplace = isInPlace || options.force;
    WriteOutputFile(target, file.text, mayReplace ? ExistingFile::replace : ExistingFile::keep);
    return MakePrintable(target) + (isInPlace ? ": formatted\n" : ": written\n");
}

std::string DescribeTrouble(const FormattedFile& file)
{
    const std::string path = NameInput(file.path);
    if (!file.problem.empty())
    {
        return MakePrintable(path) + ": error: " + file.problem + "\n";
    }
    std::string text;
    for (const Finding& error : file.errors)
    {
        text += RenderFinding(path, CSourceLines(file.input.padded.c_str()), error, Severity::error,
                              ChoosePalette(false));
    }
    return text;
}

Json ResultAsJson(const FormattedFile& file)
{
    Json json = {{"path", NameInput(file.path)}, {"good", file.IsGood()}};
    if (file.IsGood())
    {
        json["changes"] = file.Changes();
    }
    else if (!file.problem.empty())
    {
        json["reason"] = file.problem;
    }
    json["findings"] = Json::array();
    const CSourceLines lines(file.errors.empty() ? "" : file.input.padded.c_str());
    for (const Finding& error : file.errors)
    {
        json["findings"].push_back(FindingAsJson(lines, error, Severity::error));
    }
    return json;
}

void Handle(FormattedFile& file, const Options& options)
{
    if (!file.IsGood())
    {
        return;
    }
    if (options.checkOnly)
    {
        file.outcome = file.Changes() ? MakePrintable(NameInput(file.path)) + ": would change\n" : "";
        return;
    }
    try
    {
        file.outcome = Deliver(file, options);
    }
    catch (const CFailure& failure)
    {
        file.problem = failure.what();
    }
}
} // namespace

int RunFormat(const Options& options)
{
    Json list = Json::array();
    bool allFine = true;
    for (const std::string& path : FindFiles(options.files))
    {
        FormattedFile file = ReadAndFormat(path);
        Handle(file, options);
        allFine = allFine && file.IsGood() && !(options.checkOnly && file.Changes());
        if (options.json)
        {
            list.push_back(ResultAsJson(file));
        }
        else
        {
            file.IsGood() ? PrintOutput(file.outcome) : PrintError(DescribeTrouble(file));
        }
    }
    PrintOutput(options.json ? RenderJson(list) : "");
    return allFine ? exitFine : exitFailed;
}
