#pragma once

#include <filesystem>
#include <string>

// An empty folder that goes, with all that is in it, when the object does. Names and paths are in the
// system's code page.
class CTestFolder
{
public:
    CTestFolder();
    ~CTestFolder();
    CTestFolder(const CTestFolder&) = delete;
    CTestFolder& operator=(const CTestFolder&) = delete;

    [[nodiscard]] std::string GetPath() const { return path.string(); }

    // Both return the path of the new file.
    std::string Write(const std::string& name, const std::string& content) const;
    std::string Copy(const std::string& file) const;

private:
    std::filesystem::path path;
};
