#include "chooser/CFilterString.h"

#include "shared/Misc_String/CodePage.h"
#include "shared/Misc_String/LowerCase.h"

#include <utility>

namespace
{
constexpr char escape = '\\';

class CPatternParser
{
public:
    void AddStar()
    {
        if (!pending.text.empty())
        {
            Push();
        }
        pending.star = true;
    }

    void AddQuestionMark()
    {
        if (!pending.text.empty())
        {
            Push();
        }
        ++pending.skip;
    }

    void AddLiteral(std::string_view character) { pending.text.append(character); }

    std::vector<CFilterString::CFilter> Finish()
    {
        if (!pending.text.empty() || pending.skip != 0 || pending.star)
        {
            Push();
        }
        return std::move(filters);
    }

private:
    void Push() { filters.push_back(std::exchange(pending, {})); }

    std::vector<CFilterString::CFilter> filters;
    CFilterString::CFilter pending;
};

// 2 for a double-byte character, whose second byte may look like a wildcard.
std::size_t LengthOfCharacter(std::string_view text)
{
    return text.size() > 1 &&
                   IsDoubleByte(static_cast<unsigned char>(text[0]), static_cast<unsigned char>(text[1]))
               ? 2
               : 1;
}
} // namespace

void CFilterString::Reset()
{
    pattern.assign(1, '*'); // g++ 12 sees an overlap in an assignment of "*"
    filters = ParseFilterPattern(pattern);
    input.clear();
}

std::vector<CFilterString::CFilter> ParseFilterPattern(std::string_view pattern)
{
    const std::string lower = ToLowerCase(pattern);
    CPatternParser parser;
    bool escaped = false;
    for (std::string_view rest = lower; !rest.empty();)
    {
        const std::string_view character = rest.substr(0, LengthOfCharacter(rest));
        rest.remove_prefix(character.size());
        const bool special = character == "*" || character == "?" || character == "\\";
        if (!escaped && special)
        {
            switch (character.front())
            {
            case '*':
                parser.AddStar();
                break;
            case '?':
                parser.AddQuestionMark();
                break;
            default:
                escaped = true;
                break;
            }
            continue;
        }
        if (escaped && !special)
        {
            parser.AddLiteral({&escape, 1});
        }
        parser.AddLiteral(character);
        escaped = false;
    }
    if (escaped)
    {
        parser.AddLiteral({&escape, 1});
    }
    return parser.Finish();
}
