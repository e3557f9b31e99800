#pragma once

#include "tools/matlib/check/Finding.h"

#include <string>
#include <utility>
#include <vector>

// Collects the warnings of a file. What they are about are parts of its text.
class CWarnings
{
public:
    explicit CWarnings(std::string_view wholeText) : text(wholeText) {}

    void Add(std::string_view word, std::string_view rule, std::string what)
    {
        findings.push_back({false, SpanOf(word), rule, std::move(what)});
    }
    void Add(std::string_view word, std::string_view rule, std::string what, std::string_view other,
             std::string note)
    {
        Add(word, rule, std::move(what));
        findings.back().note = Note{SpanOf(other), std::move(note)};
    }

    std::vector<Finding> findings;

private:
    [[nodiscard]] Span SpanOf(std::string_view word) const
    {
        return {static_cast<std::size_t>(word.data() - text.data()), word.size()};
    }

    std::string_view text;
};
