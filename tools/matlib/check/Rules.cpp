#include "tools/matlib/check/Rules.h"

#include <algorithm>

namespace
{
// docs/check-rules.md
constexpr std::string_view document = {
#include "RulePages.inc"
};

std::string_view FindSection(std::string_view name)
{
    const std::string heading = "\n## " + std::string(name) + "\n";
    const std::size_t start = document.find(heading);
    if (start == std::string_view::npos)
    {
        return {};
    }
    const std::string_view section = document.substr(start + 1);
    return section.substr(0, section.find("\n## "));
}
} // namespace

std::string ExplainRule(std::string_view name)
{
    std::string_view rest = FindSection(name);
    std::string page;
    bool isFile = false;
    while (!rest.empty())
    {
        const std::string_view line = rest.substr(0, rest.find('\n'));
        rest.remove_prefix(std::min(line.size() + 1, rest.size()));
        if (line.starts_with("```"))
        {
            isFile = !isFile;
        }
        else if (line.starts_with("## "))
        {
            page += line.substr(3);
            page += '\n';
        }
        else
        {
            page += isFile ? "    " : "";
            page += line;
            page += '\n';
        }
    }
    return page;
}
