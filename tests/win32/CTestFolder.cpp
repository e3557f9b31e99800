#include "tests/win32/CTestFolder.h"

#include <windows.h>

#include <cstdio>
#include <stdexcept>

CTestFolder::CTestFolder()
{
    static int count = 0;
    path = std::filesystem::temp_directory_path() /
           ("matlib " + std::to_string(GetCurrentProcessId()) + " " + std::to_string(++count));
    std::filesystem::create_directories(path);
}

CTestFolder::~CTestFolder()
{
    std::error_code error;
    std::filesystem::remove_all(path, error);
}

std::string CTestFolder::Write(const std::string& name, const std::string& content) const
{
    const std::string file = GetPath() + "\\" + name;
    std::FILE* const stream = std::fopen(file.c_str(), "wb");
    if (stream == nullptr || std::fwrite(content.data(), 1, content.size(), stream) != content.size())
    {
        throw std::runtime_error("cannot write " + file);
    }
    std::fclose(stream);
    return file;
}

std::string CTestFolder::Copy(const std::string& file) const
{
    const std::filesystem::path copy = path / std::filesystem::path(file).filename();
    std::filesystem::copy_file(file, copy, std::filesystem::copy_options::overwrite_existing);
    return copy.string();
}
