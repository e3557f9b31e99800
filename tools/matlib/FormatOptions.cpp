#include "tools/matlib/FormatOptions.h"

#include "tools/matlib/QuantityParsing.h"

#include <CLI/CLI.hpp>

namespace
{
void NeedSensibleUse(const Options& options)
{
    const bool isText = !options.checkOnly && (options.materialPath == "-" || options.files.front() == "-");
    if (!options.libraryFiles.empty())
    {
        throw CLI::ValidationError("--lib", "format takes its files without it");
    }
    if (!options.materialPath.empty() && options.files.size() > 1)
    {
        throw CLI::ValidationError("--output", "takes one FILE");
    }
    if (options.json && isText && (options.materialPath == "-" || options.materialPath.empty()))
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
