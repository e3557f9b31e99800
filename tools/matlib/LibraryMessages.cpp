#include "tools/matlib/LibraryMessages.h"

#include "resources/CompiledTexts.h"
#include "tools/matlib/Wording.h"

#include <charconv>

namespace
{
bool TakeText(std::string_view& text, std::string_view start)
{
    if (!text.starts_with(start))
    {
        return false;
    }
    text.remove_prefix(start.size());
    return true;
}

bool TakeUnsigned(std::string_view& text, unsigned& number)
{
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    return error == std::errc();
}
} // namespace

std::string_view GetLibraryText(MLTEXTID wanted)
{
    return GetCompiledText(wanted);
}

std::optional<FileProblem> FindFileProblem(std::string_view message, std::string_view path)
{
    std::string_view rest = message;
    const bool startsWithPath = TakeText(rest, path);
    unsigned line = 0;
    unsigned column = 0;
    if (startsWithPath && TakeText(rest, ", line ") && TakeUnsigned(rest, line) &&
        TakeText(rest, ", column ") && TakeUnsigned(rest, column) && TakeText(rest, ": "))
    {
        return FileProblem{line, column, JoinLines(rest)};
    }
    if (startsWithPath || message.find("\"" + std::string(path) + "\"") != std::string_view::npos)
    {
        return FileProblem{{}, {}, JoinLines(message)};
    }
    return std::nullopt;
}
