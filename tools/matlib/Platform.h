#pragma once

#include <string>
#include <vector>

// The few things that the two operating systems do differently.

enum class PathState
{
    missing,
    folder,
    file
};

// What the path, in the encoding of the command line, leads to.
[[nodiscard]] PathState QueryPath(const char* path);

// Why the library cannot read what is there ("no such file"); null for a file.
[[nodiscard]] constexpr const char* DescribeUnreadable(PathState state)
{
    switch (state)
    {
    case PathState::missing:
        return "no such file";
    case PathState::folder:
        return "this is a folder";
    default:
        return nullptr;
    }
}

// The path, which is in the encoding of the command line, as writer/WriteWholeFile.h takes it.
[[nodiscard]] std::string MakeUtf8Path(const std::string& path);

// Whether both lead to one file, by whatever names or links.
[[nodiscard]] bool IsSameFile(const char* path, const char* other);

// Makes the standard streams pass every byte on as it is, and errors of the system silent.
void PrepareProcess();

// Why the library cannot show its dialog here; null when it can.
[[nodiscard]] const char* DescribeMissingDialog();

// Whether somebody reads the standard error stream on a terminal.
[[nodiscard]] bool IsWatched();

// Whether standard output goes to a terminal that shows colours.
[[nodiscard]] bool CanShowColours();

// The files with the extension .mat, in any letter case, in the folder and those below, by path.
[[nodiscard]] std::vector<std::string> FindMaterialFiles(const std::string& folder);

// The path of a program in the folders of PATH, never in the current folder; empty when it is in none.
[[nodiscard]] std::string FindProgram(const char* name);

// The material files of the installation that the program belongs to, in the order of their names; none where
// it is not installed.
[[nodiscard]] std::vector<std::string> ListInstalledExamples();

// Runs a program to its end. Its exit code, -1 when it could not be run.
[[nodiscard]] int RunProgram(const std::string& path, const std::vector<std::string>& arguments);

// Whether there is a DLL to choose.
[[nodiscard]] bool HasLoadableLibrary();
