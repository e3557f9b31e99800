#include "CCatalogue.h"

#include <windows.h>

#include <fstream>
#include <string_view>

namespace
{
std::wstring Widen(std::string_view utf8)
{
    std::wstring wide(utf8.size(), L'\0');
    wide.resize(static_cast<std::size_t>(MultiByteToWideChar(
        CP_UTF8, 0, utf8.data(), static_cast<int>(utf8.size()), wide.data(), static_cast<int>(wide.size()))));
    return wide;
}

// The library's texts are in the system's code page.
std::string ToCodePage(std::string_view utf8)
{
    const std::wstring wide = Widen(utf8);
    std::string text(2 * wide.size(), '\0');
    text.resize(static_cast<std::size_t>(
        WideCharToMultiByte(CP_ACP, 0, wide.data(), static_cast<int>(wide.size()), text.data(),
                            static_cast<int>(text.size()), nullptr, nullptr)));
    return text;
}

// The text between the first and the last quote of a line.
std::string ReadQuoted(std::string_view line)
{
    const std::size_t first = line.find('"');
    const std::size_t last = line.rfind('"');
    std::string text;
    for (std::size_t i = first + 1; first < last && i < last; ++i)
    {
        const bool isEscaped = line[i] == '\\' && i + 1 < last;
        i += isEscaped ? 1 : 0;
        text += isEscaped && line[i] == 'n' ? '\n' : line[i];
    }
    return text;
}

bool StartsWith(std::string_view line, std::string_view start)
{
    return line.substr(0, start.size()) == start;
}
} // namespace

CCatalogue::CCatalogue(const std::string& path)
{
    std::ifstream stream(path);
    std::string id;
    std::string translation;
    std::string* current = nullptr;
    const auto keep = [&]
    {
        if (!id.empty() && !translation.empty())
        {
            translations[id] = ToCodePage(translation);
        }
    };
    for (std::string line; std::getline(stream, line);)
    {
        if (StartsWith(line, "msgid "))
        {
            keep();
            translation.clear();
            current = &id;
            *current = ReadQuoted(line);
        }
        else if (StartsWith(line, "msgstr "))
        {
            current = &translation;
            *current = ReadQuoted(line);
        }
        else if (StartsWith(line, "\"") && current != nullptr)
        {
            *current += ReadQuoted(line);
        }
    }
    keep();
}

const char* CCatalogue::Find(const char* text) const
{
    const auto found = translations.find(std::string_view(text));
    return found == translations.end() ? nullptr : found->second.c_str();
}
