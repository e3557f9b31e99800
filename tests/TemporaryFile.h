#pragma once

#include <cstdio>
#include <filesystem>
#include <stdexcept>
#include <string>

// A file with the given content in a folder of its own below the system's temporary one; both go with the
// object. The name is in the system's code page.
class TemporaryFile
{
public:
    TemporaryFile(const std::string& name, const std::string& content)
    {
        static int count = 0;
        const auto folderName = "matlib_test_" + std::to_string(std::hash<std::string>()(ML_BINARY_DIR)) +
                                "_" + std::to_string(++count) + "_" +
                                std::to_string(reinterpret_cast<std::uintptr_t>(this));
        folder = std::filesystem::temp_directory_path() / folderName;
        std::filesystem::create_directories(folder);
        path = folder.string() + "/" + name;
        std::FILE* const file = std::fopen(path.c_str(), "wb");
        if (file == nullptr || std::fwrite(content.data(), 1, content.size(), file) != content.size())
        {
            throw std::runtime_error("cannot write " + path);
        }
        std::fclose(file);
    }

    ~TemporaryFile()
    {
        std::remove(path.c_str());
        std::error_code error;
        std::filesystem::remove(folder, error);
    }

    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    [[nodiscard]] const std::string& GetPath() const { return path; }

private:
    std::filesystem::path folder;
    std::string path;
};
