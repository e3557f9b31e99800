#pragma once

#include "tools/matlib/check/CMaterialChecks.h"
#include "tools/matlib/check/CNameCheck.h"

#include <cstdio>

// A file as `check` reads it: its text, padded for the library's reader, or why there is none.
struct FileText
{
    std::string padded;
    std::string problem;

    [[nodiscard]] std::string_view GetText() const; // without the padding
};
[[nodiscard]] FileText ReadText(const std::string& path);
[[nodiscard]] FileText ReadText(std::FILE* stream, const std::string& path);

struct CheckedText
{
    std::vector<Finding> findings;         // in the order of the file
    std::optional<LibraryMessage> refusal; // the library's; none where it takes the file
    int dielectrics = 0;
    int metals = 0;
};

// Checks the texts of one run after the other: a name may stand in several, rows as well.
class CTextChecker
{
public:
    explicit CTextChecker(AfterError whatAfterError) : afterError(whatAfterError) {}
    [[nodiscard]] CheckedText Check(const std::string& path, const std::string& paddedText);

private:
    AfterError afterError;
    std::vector<CFitCheck> fits = MakeFitChecks();
    CNameCheck names;
};

// Checks one text by itself, which is not padded.
[[nodiscard]] CheckedText CheckText(const std::string& path, std::string text);
