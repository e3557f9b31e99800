#include "tools/matlib/CFailure.h"
#include "tools/matlib/CommandLine.h"
#include "tools/matlib/Console.h"
#include "tools/matlib/Platform.h"
#include "tools/matlib/commands/Commands.h"

#include <new>

namespace
{
int RunCommand(const Options& options)
{
    if (options.command == Command::check)
    {
        return RunCheck(options); // reads files itself
    }
    if (options.command == Command::format)
    {
        return RunFormat(options);
    }
    if (options.command == Command::import)
    {
        return RunImport(options);
    }
    const auto host = OpenLibraryHost(options.dllPath);
    switch (options.command)
    {
    case Command::list:
        return RunList(options, *host);
    case Command::show:
        return RunShow(options, *host);
    case Command::value:
        return RunValue(options, *host);
    case Command::sweep:
        return RunSweep(options, *host);
    case Command::model:
        return RunModel(options, *host);
    case Command::plot:
        return RunPlot(options, *host);
    case Command::check:
    case Command::format:
    case Command::import:
        break;
    case Command::choose:
        return RunChoose(options, *host);
    }
    return exitWrongUsage;
}

int Run(int argc, char** argv)
{
    const auto parsed = ParseCommandLine(argc, argv);
    if (const auto* end = std::get_if<CommandLineEnd>(&parsed))
    {
        PrintOutput(end->output);
        if (!end->errors.empty())
        {
            PrintProblem(end->errors);
        }
        return end->exitCode;
    }
    return RunCommand(std::get<Options>(parsed));
}
} // namespace

int main(int argc, char** argv)
{
    PrepareProcess();
    try
    {
        return Run(argc, argv);
    }
    catch (const CFailure& failure)
    {
        PrintProblem(failure.what());
    }
    catch (const std::bad_alloc&)
    {
        PrintProblem("out of memory");
    }
    return exitFailed;
}
