#include "entry/FileQuery.h"

#include <filesystem>

bool IsExistingFile(const char* path)
{
    std::error_code error;
    const auto status = std::filesystem::status(path, error);
    return std::filesystem::exists(status) && !std::filesystem::is_directory(status);
}
