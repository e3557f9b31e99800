#include "reader/ReadWholeFile.h"

#include "reader/CTokenScanner.h"
#include "reader/ReadError.h"
#include "resources/FormatText.h"
#include "resources/Texts.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <limits>

namespace
{
// Beyond any file: what some systems report for a folder.
constexpr std::int64_t largestSize = std::numeric_limits<std::ptrdiff_t>::max() / 2;

[[noreturn]] void ThrowFileError(MLTEXTID textId, const char* path)
{
    const char* const reason = std::strerror(errno);
    throw CFileError(FormatText(LoadText(textId), {std::string_view(path), std::string_view(reason)}),
                     reason);
}

// The size found by seeking to the end and back; negative when that fails.
std::int64_t FindSize(std::FILE* file)
{
#ifdef _WIN32
    if (_fseeki64(file, 0, SEEK_END) != 0)
    {
        return -1;
    }
    const std::int64_t size = _ftelli64(file);
#else
    if (std::fseek(file, 0, SEEK_END) != 0)
    {
        return -1;
    }
    const std::int64_t size = std::ftell(file);
#endif
    std::rewind(file);
    return size;
}
} // namespace

std::unique_ptr<char[]> ReadWholeFile(File file, const char* path)
{
    if (file == nullptr)
    {
        ThrowFileError(MLTEXT_OPEN_ERROR, path);
    }
    const std::int64_t size = FindSize(file.get());
    if (size > largestSize)
    {
        errno = EFBIG;
    }
    if (size < 0 || size > largestSize)
    {
        ThrowFileError(MLTEXT_READ_ERROR, path);
    }
    const auto bytes = static_cast<std::size_t>(size);
    auto text = std::make_unique_for_overwrite<char[]>(bytes + 1 + textPadding);
    const std::size_t got = std::fread(text.get(), 1, bytes, file.get());
    if (got != bytes && std::ferror(file.get()) != 0)
    {
        ThrowFileError(MLTEXT_READ_ERROR, path);
    }
    std::fill_n(text.get() + got, 1 + textPadding, '\0');
    return text;
}
