#pragma once

#include <cstdint>

class CTokenScanner;

// A reader of files that carry a version, built on a scanner that it does not own.
class CLexReader
{
public:
    // The version of the file, which a reader stores here; 0.0 before its header was read.
    [[nodiscard]] virtual std::uint32_t& MajorVersion() = 0;
    [[nodiscard]] virtual std::uint32_t& MinorVersion() = 0;

protected:
    explicit CLexReader(CTokenScanner& tokenScanner) : scanner(&tokenScanner) {}
    ~CLexReader() = default;

    CTokenScanner* scanner;
};
