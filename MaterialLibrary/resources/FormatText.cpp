#include "resources/FormatText.h"

namespace
{
std::string ToText(const TextArgument& argument)
{
    if (const auto* number = std::get_if<unsigned>(&argument))
    {
        return std::to_string(*number);
    }
    return std::string(std::get<std::string_view>(argument));
}
} // namespace

std::string FormatText(std::string_view format, std::initializer_list<TextArgument> arguments)
{
    std::string result;
    const TextArgument* next = arguments.begin();
    for (std::size_t i = 0; i < format.size(); ++i)
    {
        if (format[i] != '%')
        {
            result += format[i];
            continue;
        }
        std::size_t letter = i + 1;
        if (letter < format.size() && format[letter] == 'l')
        {
            ++letter;
        }
        const char conversion = letter < format.size() ? format[letter] : '\0';
        if (conversion == 's' || conversion == 'u' || conversion == 'd' || conversion == 'i')
        {
            result += next != arguments.end() ? ToText(*next++) : std::string();
            i = letter;
        }
        else
        {
            result += '%';
            i += conversion == '%' && letter == i + 1 ? 1 : 0;
        }
    }
    return result;
}
