#include "tests/win32/RunProgram.h"

#include "tests/win32/CTestFolder.h"

#include <windows.h>

#include <fstream>
#include <stdexcept>

namespace
{
constexpr DWORD patience = 60'000;

// The program writes to the file `output`: a pipe would be held open by helpers that outlive the program.
unsigned RunInto(const std::string& output, std::string commandLine, const std::string& currentFolder)
{
    SECURITY_ATTRIBUTES inherited = {
        .nLength = sizeof inherited, .lpSecurityDescriptor = nullptr, .bInheritHandle = TRUE};
    const HANDLE file = CreateFileA(output.c_str(), GENERIC_WRITE, FILE_SHARE_READ, &inherited, CREATE_ALWAYS,
                                    FILE_ATTRIBUTE_NORMAL, nullptr);
    STARTUPINFOA startup = {};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdOutput = file;
    startup.hStdError = file;
    PROCESS_INFORMATION process = {};
    const BOOL started = CreateProcessA(nullptr, commandLine.data(), nullptr, nullptr, TRUE, 0, nullptr,
                                        currentFolder.c_str(), &startup, &process);
    CloseHandle(file);
    if (started == FALSE)
    {
        throw std::runtime_error("cannot start " + commandLine);
    }
    DWORD exitCode = 0;
    const bool ended = WaitForSingleObject(process.hProcess, patience) == WAIT_OBJECT_0;
    if (!ended)
    {
        TerminateProcess(process.hProcess, 1);
    }
    GetExitCodeProcess(process.hProcess, &exitCode);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    if (!ended)
    {
        throw std::runtime_error("does not end: " + commandLine);
    }
    return exitCode;
}
} // namespace

ProgramRun RunProgram(const std::string& program, const std::vector<std::string>& arguments,
                      const std::string& currentFolder)
{
    std::string commandLine = "\"" + program + "\"";
    for (const std::string& argument : arguments)
    {
        commandLine += " \"" + argument + "\"";
    }
    const CTestFolder folder;
    const std::string output = folder.GetPath() + "\\output";
    ProgramRun run = {.exitCode = RunInto(output, commandLine, currentFolder), .lines = {}};
    std::ifstream stream(output);
    for (std::string line; std::getline(stream, line);)
    {
        run.lines.push_back(line);
    }
    return run;
}
