#include "tools/matlib/CheckOptions.h"

#include "tools/matlib/NearestNames.h"
#include "tools/matlib/Wording.h"
#include "tools/matlib/check/Rules.h"

#include <CLI/CLI.hpp>
#include <map>

namespace
{
std::string DescribeBadRule(const std::string& name)
{
    std::vector<std::string> names(std::begin(rule::errors), std::end(rule::errors));
    names.insert(names.end(), std::begin(rule::warnings), std::end(rule::warnings));
    if (std::ranges::find(names, name) != names.end())
    {
        return {};
    }
    const auto nearest = FindNearestNames(name, names);
    return Quote(name) + " is no rule" + (nearest.empty() ? "" : "; did you mean " + nearest.front() + "?");
}

std::string DescribeBadWarning(const std::string& name)
{
    const bool isWarning = std::ranges::find(rule::warnings, name) != std::end(rule::warnings);
    const std::string bad = DescribeBadRule(name);
    return isWarning || !bad.empty() ? bad : name + " is always an error";
}

void AddRules(CLI::App& app, const char* name, std::vector<std::string>& rules, const char* description)
{
    app.add_option(name, rules, description)
        ->type_name("RULE")
        ->delimiter(',')
        ->allow_extra_args(false)
        ->check(DescribeBadWarning);
}

void AddColouring(CLI::App& app, Options& options)
{
    const std::map<std::string, Colouring> words = {
        {"auto", Colouring::automatic}, {"always", Colouring::always}, {"never", Colouring::never}};
    app.add_option_function<std::string>(
           "--color", [&options, words](const std::string& word) { options.colouring = words.at(word); },
           "When to colour the output: auto, always or never")
        ->type_name("WHEN")
        ->default_str("auto")
        ->check(
            [words](const std::string& word)
            { return words.contains(word) ? "" : Quote(word) + " is unknown; use auto, always or never"; });
}
} // namespace

void AddCheckOptions(CLI::App& check, Options& options)
{
    check.add_flag("--strict", options.strict, "Take warnings for errors");
    AddRules(check, "--allow", options.allowedRules,
             "Leave out warnings of this rule, or of several in several --allow");
    AddRules(check, "--deny", options.deniedRules, "Take warnings of this rule for errors");
    check
        .add_option("--explain", options.explainedRule,
                    "Print what a rule is about, with a wrong and a right file")
        ->type_name("RULE")
        ->check(DescribeBadRule);
    AddColouring(check, options);
    check.add_flag("--all-errors", options.allErrors,
                   "Go on behind the first error of a file to list the rest");
}
