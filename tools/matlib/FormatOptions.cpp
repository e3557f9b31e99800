#include "tools/matlib/FormatOptions.h"

#include "tools/matlib/QuantityParsing.h"

#include <CLI/CLI.hpp>
#include <algorithm>

namespace
{
void NeedSensibleUse(const Options& options)
{
    if (!options.libraryFiles.empty())
    {
        throw CLI::ValidationError("--lib", "format takes its files without it");
    }
    if (options.files.empty())
    {
        throw CLI::RequiredError("FILE");
    }
    if (!options.materialPath.empty() && options.files.size() > 1)
    {
        throw CLI::ValidationError("--output", "takes one FILE");
    }
    const bool hasStream = std::ranges::find(options.files, "-") != options.files.end();
    if (hasStream && options.files.size() > 1 && !options.checkOnly)
    {
        throw CLI::ValidationError("-", "takes no other FILE");
    }
    const bool isPrinted = options.materialPath == "-" || (hasStream && options.materialPath.empty());
    if (options.json && isPrinted && !options.checkOnly)
    {
        throw CLI::ValidationError("--json", "the formatted text has the standard output");
    }
}
} // namespace

void AddFormatOptions(CLI::App& format, Options& options)
{
    format
        .add_option_function<std::vector<std::string>>(
            "FILE", [&options](const std::vector<std::string>& lists) { options.files = SplitPaths(lists); },
            "Material files, folders of them, or - from standard input to standard output")
        ->required()
        ->type_name("");
    CLI::Option* const output =
        format
            .add_option("-o,--output", options.materialPath,
                        "Write here instead of replacing the one FILE; - is standard output")
            ->type_name("FILE");
    format.add_flag("--force", options.force, "Replace the file of -o where there is one")->needs(output);
    format.add_flag("--check", options.checkOnly, "Write nothing; list the files that would change")
        ->excludes(output);
    format.final_callback([&options] { NeedSensibleUse(options); });
}
