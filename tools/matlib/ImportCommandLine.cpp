#include "tools/matlib/ImportCommandLine.h"

#include "tools/matlib/Wording.h"
#include "tools/matlib/import/ColumnHeads.h"
#include "tools/matlib/import/Templates.h"

#include <CLI/CLI.hpp>
#include <map>

namespace
{
// "HEAD=WHAT": both sides of the last "=".
struct Assignment
{
    std::string head;
    std::string what;
};

Assignment SplitAssignment(const std::string& text)
{
    const std::size_t equals = text.rfind('=');
    return equals == std::string::npos ? Assignment{{}, text}
                                       : Assignment{text.substr(0, equals), text.substr(equals + 1)};
}

std::string DescribeBadAssignment(const std::string& text)
{
    const Assignment assignment = SplitAssignment(text);
    return assignment.head.empty() || assignment.what.empty()
               ? Quote(text) + " has no \"=\" between a head and what it is"
               : "";
}

std::string DescribeBadMap(const std::string& text)
{
    const std::string bad = DescribeBadAssignment(text);
    return bad.empty() ? ParseMapTarget(SplitAssignment(text).what).problem : bad;
}

void AddMaps(CLI::App& command, Options& options)
{
    const auto setMaps = [&options](const std::vector<std::string>& texts)
    {
        for (const std::string& text : texts)
        {
            const Assignment assignment = SplitAssignment(text);
            const MapTarget target = ParseMapTarget(assignment.what);
            options.import.maps.push_back({assignment.head, target.traits->property, target.frequency});
        }
    };
    const auto setUnits = [&options](const std::vector<std::string>& texts)
    {
        for (const std::string& text : texts)
        {
            const Assignment assignment = SplitAssignment(text);
            options.import.units.push_back({assignment.head, assignment.what});
        }
    };
    command
        .add_option_function<std::vector<std::string>>(
            "--map", setMaps,
            "What the column with this head is: \"Dicke=thickness\", \"Dk @ 10GHz=er@10GHz\"")
        ->type_name("HEAD=PROPERTY")
        ->allow_extra_args(false)
        ->check(DescribeBadMap);
    command
        .add_option_function<std::vector<std::string>>(
            "--unit", setUnits, "The unit of the column with this head: \"Thickness=mm\"")
        ->type_name("HEAD=UNIT")
        ->allow_extra_args(false)
        ->check(DescribeBadAssignment);
    command.add_option("--ignore", options.import.ignoredHeads, "Leave out the column with this head")
        ->type_name("HEAD")
        ->allow_extra_args(false);
    command.add_option("--empty", options.import.emptyMarks, "Cells with this text have no value: \"n/a\"")
        ->type_name("TEXT")
        ->allow_extra_args(false);
}

// An option whose text is one of a few words, which `list` has for messages.
template <class Value>
void AddWord(CLI::App& command, const char* name, const char* description, const std::string& list,
             const std::map<std::string, Value>& words, std::function<void(Value)> set)
{
    command
        .add_option_function<std::string>(
            name, [words, set](const std::string& word) { set(words.at(word)); },
            std::string(description) + ": " + list)
        ->type_name("WORD")
        ->check([words, list](const std::string& word)
                { return words.contains(word) ? "" : Quote(word) + " is unknown; use " + list; });
}

void AddSpelling(CLI::App& command, Options& options)
{
    AddWord<char>(command, "--separator", "What stands between the cells", "comma, semicolon or tab",
                  {{"comma", ','}, {"semicolon", ';'}, {"tab", '\t'}},
                  [&options](char separator) { options.import.separator = separator; });
    AddWord<DecimalSign>(command, "--decimal", "The decimal sign of the tables", "point or comma",
                         {{"point", DecimalSign::point}, {"comma", DecimalSign::comma}},
                         [&options](DecimalSign sign) { options.import.decimalSign = sign; });
}
} // namespace

void AddImportOptions(CLI::App& command, Options& options)
{
    command
        .add_option("TABLE", options.tables,
                    "Tables: CSV files whose first line has the heads of the columns; - is standard input")
        ->type_name("");
    command
        .add_option("-o,--output", options.materialPath,
                    "The material file; without it a template goes to standard output")
        ->type_name("FILE");
    command.add_flag("--force", options.force, "Replace a file that is there");
    AddMaps(command, options);
    AddSpelling(command, options);
    command
        .add_option("--template", options.templateName,
                    "Instead of tables a commented file to start from: laminate or foil")
        ->type_name("WORD")
        ->check(
            [](const std::string& name)
            { return GetTemplate(name).empty() ? Quote(name) + " is unknown; use laminate or foil" : ""; });
    command.final_callback(
        [&options]
        {
            if (options.tables.empty() == options.templateName.empty())
            {
                throw CLI::RequiredError("either TABLE or --template");
            }
            if (!options.tables.empty() && options.materialPath.empty())
            {
                throw CLI::RequiredError("--output");
            }
            if (!options.tables.empty() && options.materialPath == "-")
            {
                throw CLI::ValidationError("--output", "is a file; standard output says what was understood");
            }
            if (!options.libraryFiles.empty())
            {
                throw CLI::ValidationError("--lib", "import takes its tables without it");
            }
        });
}
