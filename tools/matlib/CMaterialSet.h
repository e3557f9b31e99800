#pragma once

#include "tools/matlib/ILibraryHost.h"

#include <string>
#include <vector>

class IMaterial;

// The materials of the files that a command works on, or of the sample library when there are none.
class CMaterialSet
{
public:
    // Loads the files. What is wrong with them goes to the standard error stream; the materials of the
    // other files are there, as a host would have them.
    CMaterialSet(ILibraryHost& host, const std::vector<std::string>& files);

    // The material of that name. Throws CFailure, with the nearest names, when there is none.
    [[nodiscard]] IMaterial& Find(const std::string& name) const;

    // Every material, in the order of the files.
    [[nodiscard]] std::vector<IMaterial*> ListAll() const;

    [[nodiscard]] IMatLib& GetLibrary() const { return *library; }

    // exitFine, or exitFailed when a file is missing or was refused.
    [[nodiscard]] int GetExitCode() const;

private:
    void ReportFiles(ILibraryHost& host, const std::vector<std::string>& files);

    LibraryPtr library;
    bool allFilesGood = true;
};
