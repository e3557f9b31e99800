#include "tools/matlib/check/CheckText.h"

#include "reader/LoadMaterialFile.h"
#include "reader/ReadWholeFile.h"
#include "resources/FormatText.h"
#include "tools/matlib/LibraryMessages.h"
#include "tools/matlib/Wording.h"
#include "tools/matlib/check/CWarnings.h"
#include "tools/matlib/check/FindWarnings.h"
#include "tools/matlib/check/Rules.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <iterator>

namespace
{
FileText DescribeProblem(MLTEXTID frame, const std::string& path)
{
    const char* const reason = std::strerror(errno);
    const std::string text =
        FormatText(std::string(GetLibraryText(frame)), {std::string_view(path), std::string_view(reason)});
    return {{}, JoinLines(text)};
}
} // namespace

std::string_view FileText::GetText() const
{
    return {padded.data(), padded.size() - PadText({}).size()};
}

namespace
{
constexpr long largestGuess = 1L << 30;

// The size is a guess: a pipe has none, a folder any.
FileText ReadAll(std::FILE* stream, const std::string& path, long size)
{
    std::string text;
    text.reserve(PadText({}).size() + static_cast<std::size_t>(std::clamp(size, 0L, largestGuess)));
    std::array<char, 65536> block;
    while (const std::size_t got = std::fread(block.data(), 1, block.size(), stream))
    {
        text.append(block.data(), got);
    }
    return std::ferror(stream) != 0 ? DescribeProblem(MLTEXT_READ_ERROR, path)
                                    : FileText{PadText(std::move(text)), {}};
}
} // namespace

FileText ReadText(std::FILE* stream, const std::string& path)
{
    return ReadAll(stream, path, 0);
}

FileText ReadText(const std::string& path)
{
    const File file(std::fopen(path.c_str(), "rb"));
    if (file == nullptr)
    {
        return DescribeProblem(MLTEXT_OPEN_ERROR, path);
    }
    const bool hasEnd = std::fseek(file.get(), 0, SEEK_END) == 0;
    const long size = hasEnd ? std::ftell(file.get()) : 0;
    std::rewind(file.get());
    return ReadAll(file.get(), path, size);
}

CheckedText CTextChecker::Check(const std::string& path, const std::string& paddedText)
{
    auto [file, found] = FindWarnings(paddedText, afterError, fits);
    CWarnings warnings(paddedText);
    warnings.findings = std::move(found);
    names.Check(warnings, path, file.materials);
    CheckedText checked{std::move(warnings.findings), {}, 0, 0};
    if (!file.errors.empty())
    {
        checked.refusal = file.errors.front().library;
    }
    const std::vector<Finding>& errors = file.errors;
    std::erase_if(checked.findings, [&errors](const Finding& warning)
                  { return std::ranges::find(errors, warning.where, &Finding::where) != errors.end(); });
    std::ranges::move(file.errors, std::back_inserter(checked.findings));
    std::ranges::stable_sort(checked.findings, {}, &Finding::where);
    for (const ParsedMaterial& material : file.materials)
    {
        ++(material.kind == MLMATERIAL_METAL ? checked.metals : checked.dielectrics);
    }
    return checked;
}

CheckedText CheckText(const std::string& path, std::string text)
{
    return CTextChecker(AfterError::stop).Check(path, PadText(std::move(text)));
}
