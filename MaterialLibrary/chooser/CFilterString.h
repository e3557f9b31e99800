#pragma once

#include <string>
#include <string_view>
#include <vector>

// A pattern that names are filtered by, cut into its literal runs. In a pattern "*" stands for any run of
// characters and "?" for any one; a backslash before "*", "?" or a backslash takes that character literally,
// before any other it is literal itself.
class CFilterString
{
public:
    // A literal run, and the wildcards between it and the run before.
    struct CFilter
    {
        std::string text;  // in small letters; empty only where the pattern ends with wildcards
        unsigned skip = 0; // number of "?"
        bool star = false; // whether there is a "*"

        friend bool operator==(const CFilter&, const CFilter&) = default;
    };

    // Makes it match everything: the pattern "*", nothing put in by a user.
    void Reset();

    [[nodiscard]] const std::vector<CFilter>& GetFilters() const { return filters; }
    [[nodiscard]] const std::string& GetPattern() const { return pattern; }

    // What edit boxes show: the text that was last put in from outside.
    [[nodiscard]] const std::string& GetInput() const { return input; }

private:
    std::vector<CFilter> filters;
    std::string pattern;
    std::string input;
};

// Cuts a pattern into its runs; an empty one has none.
[[nodiscard]] std::vector<CFilterString::CFilter> ParseFilterPattern(std::string_view pattern);
