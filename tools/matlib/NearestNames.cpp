#include "tools/matlib/NearestNames.h"

#include <algorithm>
#include <numeric>

namespace
{
char ToLower(char character)
{
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a') : character;
}

std::string ToLower(std::string_view text)
{
    std::string lower(text);
    std::ranges::transform(lower, lower.begin(), [](char character) { return ToLower(character); });
    return lower;
}

// How many characters must be inserted, removed or replaced to make one text the other.
std::size_t CountEdits(std::string_view a, std::string_view b)
{
    std::vector<std::size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 0; i < a.size(); ++i)
    {
        std::size_t diagonal = row[0];
        row[0] = i + 1;
        for (std::size_t j = 0; j < b.size(); ++j)
        {
            const std::size_t replaced = diagonal + (a[i] == b[j] ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({replaced, row[j] + 1, diagonal + 1});
        }
    }
    return row.back();
}

constexpr std::size_t tooFar = static_cast<std::size_t>(-1);

// How far `name` is from `wanted`, both in lower case: few different characters are nearer than one text
// containing the other. tooFar when nobody would confuse them.
std::size_t Distance(std::string_view wanted, std::string_view name)
{
    const std::size_t limit = std::max<std::size_t>(1, wanted.size() / 3);
    const std::size_t shorter = std::min(wanted.size(), name.size());
    const std::size_t longer = std::max(wanted.size(), name.size());
    if (longer - shorter <= limit)
    {
        const std::size_t edits = CountEdits(wanted, name);
        if (edits <= limit)
        {
            return edits;
        }
    }
    const bool contained =
        name.find(wanted) != std::string_view::npos || wanted.find(name) != std::string_view::npos;
    return contained && shorter >= 2 ? limit + (longer - shorter) : tooFar;
}
} // namespace

bool EqualIgnoringCase(std::string_view a, std::string_view b)
{
    return std::ranges::equal(
        a, b, {}, [](char x) { return ToLower(x); }, [](char x) { return ToLower(x); });
}

std::vector<std::string> FindNearestNames(std::string_view wanted, std::span<const std::string> names)
{
    constexpr std::size_t most = 3;
    struct Candidate
    {
        std::size_t distance;
        const std::string* name;
    };
    const std::string wantedLower = ToLower(wanted);
    std::vector<Candidate> candidates;
    for (const std::string& name : names)
    {
        const std::size_t distance = Distance(wantedLower, ToLower(name));
        if (distance != tooFar)
        {
            candidates.push_back({distance, &name});
        }
    }
    std::ranges::stable_sort(candidates, {}, &Candidate::distance);
    std::vector<std::string> nearest;
    for (const Candidate& candidate : candidates)
    {
        if (nearest.size() < most && std::ranges::find(nearest, *candidate.name) == nearest.end())
        {
            nearest.push_back(*candidate.name);
        }
    }
    return nearest;
}
