#pragma once

#include "tools/matlib/ILibraryHost.h"
#include "tools/matlib/Options.h"

#include <string>
#include <vector>

class IMaterial;

// The materials of the files that a command works on. Where it names none they are those of MATLIB_PATH, else
// the examples that were installed with the program, else the built-in sample library.
class CMaterialSet
{
public:
    // Loads the files. What is wrong with them goes to the standard error stream; the materials of the
    // other files are there, as a host would have them.
    CMaterialSet(ILibraryHost& host, const Options& options);

    // The material of that name. Throws CFailure, with the nearest names, when there is none.
    [[nodiscard]] IMaterial& Find(const std::string& name) const;

    // The materials that the options name, or all.
    [[nodiscard]] std::vector<IMaterial*> Select(const Options& options) const;

    // Every material, in the order of the files.
    [[nodiscard]] std::vector<IMaterial*> ListAll() const;

    [[nodiscard]] IMatLib& GetLibrary() const { return *library; }

    // exitFine, or exitFailed when a file is missing or was refused.
    [[nodiscard]] int GetExitCode() const;

private:
    void ReportFiles(ILibraryHost& host, const Options& options);
    [[nodiscard]] bool IsOfInterest(const std::string& message, const Options& options) const;

    std::vector<std::string> files;
    LibraryPtr library;
    bool allFilesGood = true;
};
