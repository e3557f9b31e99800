#pragma once

#include "tools/matlib/check/ParsedFile.h"

#include <memory_resource>
#include <unordered_map>

class CWarnings;

// Looks for names that stand twice, in one file or in several that are checked one after the other.
class CNameCheck
{
public:
    // Warns of each material whose name stands in its file or in one before already.
    void Check(CWarnings& warnings, const std::string& path, std::span<const ParsedMaterial> materials);

private:
    struct Places
    {
        std::size_t firstFile = 0; // of the paths
        std::size_t lastFile = 0;
        std::string_view firstInLast; // lives as long as that file's text
    };

    std::vector<std::string> paths;
    std::pmr::monotonic_buffer_resource memory;
    std::pmr::unordered_map<std::pmr::string, Places> names{&memory};
};
