#include "resources/FormatText.h"

#include <algorithm>
#include <charconv>
#include <optional>

namespace
{
constexpr std::size_t widest = 255; // what a text may ask for

struct Placeholder
{
    std::string_view flags;
    std::size_t width = 0;
    std::size_t precision = std::string_view::npos;
    std::size_t length = 0; // of its text
};

std::string_view TakeAnyOf(std::string_view& text, std::string_view characters)
{
    const std::string_view taken = text.substr(0, text.find_first_not_of(characters));
    text.remove_prefix(taken.size());
    return taken;
}

std::size_t TakeNumber(std::string_view& text)
{
    const std::string_view digits = TakeAnyOf(text, "0123456789");
    std::size_t number = 0;
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    return result.ec == std::errc::result_out_of_range ? widest : std::min(number, widest);
}

// The placeholder after a "%"; nothing where another letter follows.
std::optional<Placeholder> ReadPlaceholder(std::string_view text)
{
    Placeholder read;
    std::string_view rest = text;
    read.flags = TakeAnyOf(rest, "-+ #0");
    read.width = TakeNumber(rest);
    if (rest.starts_with('.'))
    {
        rest.remove_prefix(1);
        read.precision = TakeNumber(rest);
    }
    if (rest.starts_with("I64") || rest.starts_with("I32"))
    {
        rest.remove_prefix(3);
    }
    TakeAnyOf(rest, "hlLjztwI");
    if (rest.empty() || std::string_view("sSudi").find(rest.front()) == std::string_view::npos)
    {
        return std::nullopt;
    }
    read.length = text.size() - rest.size() + 1;
    return read;
}

void Append(std::string& result, const Placeholder& placeholder, const TextArgument& argument)
{
    const auto* const number = std::get_if<unsigned>(&argument);
    std::string text =
        number != nullptr
            ? std::to_string(*number)
            : std::string(std::get<std::string_view>(argument).substr(0, placeholder.precision));
    const std::size_t padding = placeholder.width - std::min(placeholder.width, text.size());
    const bool left = placeholder.flags.find('-') != std::string_view::npos;
    const bool zeros = number != nullptr && !left && placeholder.flags.find('0') != std::string_view::npos;
    text.insert(left ? text.size() : 0, padding, zeros ? '0' : ' ');
    result += text;
}
} // namespace

std::string FormatText(std::string_view format, std::initializer_list<TextArgument> arguments)
{
    std::string result;
    const TextArgument* next = arguments.begin();
    while (!format.empty())
    {
        const std::size_t plain = std::min(format.find('%'), format.size());
        result += format.substr(0, plain);
        format.remove_prefix(plain);
        if (format.empty())
        {
            break;
        }
        format.remove_prefix(1);
        if (const auto placeholder = ReadPlaceholder(format))
        {
            Append(result, *placeholder, next != arguments.end() ? *next++ : TextArgument());
            format.remove_prefix(placeholder->length);
            continue;
        }
        result += '%';
        format.remove_prefix(format.starts_with('%') ? 1 : 0);
    }
    return result;
}
