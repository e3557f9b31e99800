#include "tools/matlib/CommandLine.h"

#include "MaterialLibrary/Version.h"
#include "tools/matlib/CFailure.h"
#include "tools/matlib/CheckOptions.h"
#include "tools/matlib/FormatOptions.h"
#include "tools/matlib/ImportCommandLine.h"
#include "tools/matlib/MaterialFilter.h"
#include "tools/matlib/NearestNames.h"
#include "tools/matlib/PictureFile.h"
#include "tools/matlib/Platform.h"
#include "tools/matlib/QuantityParsing.h"
#include "tools/matlib/Wording.h"

#include <CLI/CLI.hpp>
#include <sstream>

namespace
{
constexpr int smallestPicture = 64; // pixels in each direction
constexpr int largestPicture = 16384;
constexpr int mostSweepPoints = 10000; // more than any picture or table shows
constexpr int mostPolesPerDecade = 20;

const PropertyWords* FindProperty(const std::string& option)
{
    const auto found = std::ranges::find_if(properties, [&](const PropertyWords& words)
                                            { return EqualIgnoringCase(words.option, option); });
    return found == std::end(properties) ? nullptr : found;
}

std::string DescribeBadProperty(const std::string& option)
{
    return FindProperty(option) != nullptr
               ? ""
               : Quote(option) + " is unknown; use er, losstangent, roughtop or roughbtm";
}

// --json and --lib stand before the command or after it.
void AddJson(CLI::App& app, Options& options)
{
    app.add_flag_function(
        "--json", [&options](std::int64_t) { options.json = true; }, "Answer in JSON, in SI units");
}

std::string DescribeBadList(const std::string& list)
{
    return SplitPaths({list}).empty() ? "names no file" : "";
}

void AddLibraryFiles(CLI::App& app, Options& options)
{
    const auto addFiles = [&options](const std::vector<std::string>& lists)
    {
        for (std::string& path : SplitPaths(lists))
        {
            options.libraryFiles.push_back(std::move(path));
        }
    };
    app.add_option_function<std::vector<std::string>>(
           "--lib", addFiles,
           "Material files, separated by \";\" or in several --lib; default: those of MATLIB_PATH, else the "
           "installed examples")
        ->type_name("FILES")
        ->allow_extra_args(false)
        ->check(DescribeBadList);
}

void AddMaterial(CLI::App& app, Options& options)
{
    app.add_option("NAME", options.material, "The material's name")->required()->type_name("");
}

CLI::Option* AddQuantity(CLI::App& app, const char* name, double& target, const char* description,
                         Quantity (*parse)(std::string_view))
{
    return app
        .add_option_function<std::string>(
            name, [&target, parse](const std::string& text) { target = parse(text).value; }, description)
        ->check([parse](const std::string& text) { return parse(text).problem; });
}

void AddFrequency(CLI::App& app, const char* name, double& target, const char* description,
                  const char* defaultText)
{
    auto* const option = AddQuantity(app, name, target, description, ParseFrequency)->type_name("FREQUENCY");
    if (defaultText == nullptr)
    {
        option->required();
    }
    else
    {
        option->default_str(defaultText);
    }
}

void AddTemperature(CLI::App& app, Options& options)
{
    AddQuantity(app, "--temp", options.temperature, "Temperature in degrees Celsius", ParseTemperature)
        ->type_name("CELSIUS")
        ->default_str("25");
}

void AddMaterials(CLI::App& app, Options& options)
{
    app.add_option("NAME", options.materials, "The names of one or more materials")->type_name("");
    app.add_flag("--all", options.allMaterials, "All materials; those without values are left out");
}

void AddModelFlag(CLI::App& app, Options& options)
{
    app.add_flag("--model", options.smooth,
                 "The model also at the rows' frequencies: smooth and causal; roughness on straight lines");
}

void AddTemperatures(CLI::App& app, Options& options)
{
    const auto setAll = [&options](const std::vector<std::string>& texts)
    {
        options.temperatures.clear();
        std::ranges::transform(texts, std::back_inserter(options.temperatures),
                               [](const std::string& text) { return ParseTemperature(text).value; });
    };
    app.add_option_function<std::vector<std::string>>(
           "--temp", setAll, "Temperatures in degrees Celsius, separated by \",\" or in several --temp")
        ->delimiter(',')
        ->allow_extra_args(false)
        ->check([](const std::string& text) { return ParseTemperature(text).problem; })
        ->type_name("CELSIUS")
        ->default_str("25");
}

void AddProperty(CLI::App& app, Options& options)
{
    app.add_option_function<std::string>(
           "--kind", [&options](const std::string& text) { options.property = FindProperty(text)->kind; },
           "What to ask for: er, losstangent, roughtop or roughbtm")
        ->required()
        ->type_name("KIND")
        ->check(DescribeBadProperty);
}

void AddSweepRange(CLI::App& app, Options& options)
{
    AddFrequency(app, "--from", options.sweepFrom, "First frequency", "1MHz");
    AddFrequency(app, "--to", options.sweepTo, "Last frequency", "20GHz");
    app.add_option_function<std::string>(
           "--points",
           [&options](const std::string& text)
           { options.sweepPoints = static_cast<int>(ParseWholeNumber(text, 2, mostSweepPoints).value); },
           "Number of frequencies")
        ->type_name("COUNT")
        ->default_str("200")
        ->check([](const std::string& text) { return ParseWholeNumber(text, 2, mostSweepPoints).problem; });
    app.add_flag("--log", options.sweepLogarithmic, "Spread the frequencies evenly over the decades");
    app.final_callback(
        [&options]
        {
            if (options.materials.empty() != options.allMaterials)
            {
                options.allMaterials ? throw CLI::ValidationError("--all", "takes no NAME")
                                     : throw CLI::RequiredError("NAME or --all");
            }
            if (!(options.sweepFrom < options.sweepTo))
            {
                throw CLI::ValidationError("--from", "must be below --to");
            }
        });
}

std::string DescribeBadKind(const std::string& text)
{
    return EqualIgnoringCase(text, "dielectric") || EqualIgnoringCase(text, "metal")
               ? ""
               : Quote(text) + " is unknown; use dielectric or metal";
}

MLMATERIALKIND KindNamed(const std::string& text)
{
    return EqualIgnoringCase(text, "metal") ? MLMATERIAL_METAL : MLMATERIAL_DIELECTRIC;
}

CLI::App& AddCommand(CLI::App& app, Options& options, Command command, const char* name,
                     const char* description, const char* example)
{
    CLI::App& added = *app.add_subcommand(name, description);
    added.footer(std::string("Example:\n  ") + example);
    added.fallthrough();
    added.parse_complete_callback([&options, command] { options.command = command; });
    AddJson(added, options);
    return added;
}

std::string DescribeBadSortKey(const std::string& text)
{
    std::string known;
    for (const char* const key : sortKeys)
    {
        if (EqualIgnoringCase(key, text))
        {
            return "";
        }
        known += std::string(known.empty() ? "" : ", ") + key;
    }
    return Quote(text) + " is unknown; use " + known;
}

std::string DescribeBadTechnology(const std::string& text)
{
    for (const int technology : {MLTECHNOLOGY_CORE, MLTECHNOLOGY_PREPREG, MLTECHNOLOGY_FLEXCORE})
    {
        if (EqualIgnoringCase(TechnologyWord(technology), text))
        {
            return "";
        }
    }
    return Quote(text) + " is unknown; use core, prepreg or flexcore";
}

void AddFilters(CLI::App& list, ListFilter& filter)
{
    list.add_option("TEXT", filter.text, "Only materials with this text in name, type, vendor or comment")
        ->type_name("");
    list.add_option_function<std::string>(
            "--kind", [&filter](const std::string& text) { filter.kind = KindNamed(text); },
            "Only this kind: dielectric or metal")
        ->type_name("KIND")
        ->check(DescribeBadKind);
    list.add_option("--type", filter.type, "Only this type of laminate or conductor")->type_name("TYPE");
    list.add_option("--technology", filter.technology, "Only this technology: core, prepreg or flexcore")
        ->type_name("TECHNOLOGY")
        ->check(DescribeBadTechnology);
    list.add_option("--vendor", filter.vendor, "Only this vendor")->type_name("VENDOR");
    list.add_option_function<std::string>(
            "--thickness",
            [&filter](const std::string& text) { filter.thickness = ParseLengthRange(text).range; },
            "Only thicknesses from one to another, either may be missing: 100um..0.2mm")
        ->type_name("FROM..TO")
        ->check([](const std::string& text) { return ParseLengthRange(text).problem; });
    list.add_option("--sort", filter.sortKey,
                    "Sort by: name, kind, type, vendor, technology, thickness or resistivity")
        ->type_name("COLUMN")
        ->check(DescribeBadSortKey)
        ->transform(CLI::detail::to_lower);
}

void AddList(CLI::App& app, Options& options)
{
    CLI::App& list = AddCommand(app, options, Command::list, "list", "List the materials, or some of them",
                                "matlib list --technology core --thickness ..150um --sort thickness");
    AddFilters(list, options.filter);
    AddLibraryFiles(list, options);
}

void AddShow(CLI::App& app, Options& options)
{
    CLI::App& show =
        AddCommand(app, options, Command::show, "show", "Show all that the files say about a material",
                   "matlib show \"Getinaks - 2\"");
    AddMaterial(show, options);
    AddLibraryFiles(show, options);
}

void AddValue(CLI::App& app, Options& options)
{
    CLI::App& value = AddCommand(app, options, Command::value, "value",
                                 "Print a property of a material at a frequency and temperature",
                                 "matlib value Getinaks --kind er --freq 2.5GHz --temp 25");
    AddMaterial(value, options);
    AddProperty(value, options);
    AddFrequency(value, "--freq", options.frequency, "The frequency: 2.5GHz, 100kHz, 1e9", nullptr);
    AddTemperature(value, options);
    AddModelFlag(value, options);
    AddLibraryFiles(value, options);
}

void AddModel(CLI::App& app, Options& options)
{
    CLI::App& model = AddCommand(app, options, Command::model, "model",
                                 "Print the model that values between a material's rows come from",
                                 "matlib model Getinaks --poles 3");
    AddMaterial(model, options);
    AddTemperature(model, options);
    model
        .add_option_function<std::string>(
            "--poles",
            [&options](const std::string& text) {
                options.polesPerDecade =
                    static_cast<int>(ParseWholeNumber(text, 1, mostPolesPerDecade).value);
            },
            "As single Debye poles, so many a decade, for a time-domain solver")
        ->type_name("COUNT")
        ->check([](const std::string& text)
                { return ParseWholeNumber(text, 1, mostPolesPerDecade).problem; });
    AddLibraryFiles(model, options);
}

void AddSweep(CLI::App& app, Options& options)
{
    CLI::App& sweep =
        AddCommand(app, options, Command::sweep, "sweep",
                   "Print Er and loss tangent, or a metal's roughness factors, over frequency",
                   "matlib sweep Getinaks Fiberglass --temp 25,60 --from 1MHz --to 20GHz --log");
    AddMaterials(sweep, options);
    AddSweepRange(sweep, options);
    AddTemperatures(sweep, options);
    AddModelFlag(sweep, options);
    AddLibraryFiles(sweep, options);
}

// The two sides of "760x400" in pixels, or why the text was refused.
struct PictureSize
{
    Quantity width;
    Quantity height;
};

PictureSize ParsePictureSize(const std::string& text)
{
    const std::size_t cross = text.find_first_of("xX");
    const std::string height = cross == std::string::npos ? "" : text.substr(cross + 1);
    return {ParseWholeNumber(text.substr(0, cross), smallestPicture, largestPicture),
            ParseWholeNumber(height, smallestPicture, largestPicture)};
}

std::string DescribeBadSize(const std::string& text)
{
    const PictureSize size = ParsePictureSize(text);
    return size.width.problem.empty() && size.height.problem.empty()
               ? ""
               : Quote(text) + " is no size; use WIDTHxHEIGHT, each from " + std::to_string(smallestPicture) +
                     " to " + std::to_string(largestPicture);
}

void AddPicture(CLI::App& app, Options& options)
{
    app.add_option("-o,--output", options.picturePath, "The picture: a file that ends in .svg or .png")
        ->required()
        ->type_name("FILE")
        ->check(DescribeBadPicture);
    app.add_option_function<std::string>(
           "--size",
           [&options](const std::string& text)
           {
               const PictureSize size = ParsePictureSize(text);
               options.pictureWidth = static_cast<int>(size.width.value);
               options.pictureHeight = static_cast<int>(size.height.value);
           },
           "The picture's size in pixels")
        ->type_name("WIDTHxHEIGHT")
        ->default_str("760x400")
        ->check(DescribeBadSize);
}

void AddPlot(CLI::App& app, Options& options)
{
    CLI::App& plot = AddCommand(app, options, Command::plot, "plot",
                                "Draw Er and loss tangent, or roughness factors, of materials over frequency",
                                "matlib plot Getinaks \"Getinaks - 2\" --log -o laminates.svg");
    AddMaterials(plot, options);
    AddPicture(plot, options);
    const auto addKinds = [&options](const std::vector<std::string>& texts)
    {
        for (const std::string& text : texts)
        {
            options.plottedProperties.push_back(FindProperty(text)->kind);
        }
    };
    plot.add_option_function<std::vector<std::string>>(
            "--kind", addKinds,
            "Only this property, or these in several --kind: er, losstangent, roughtop or roughbtm")
        ->type_name("KIND")
        ->allow_extra_args(false)
        ->check(DescribeBadProperty);
    AddSweepRange(plot, options);
    AddTemperatures(plot, options);
    AddLibraryFiles(plot, options);
}

void AddCheck(CLI::App& app, Options& options)
{
    CLI::App& check =
        AddCommand(app, options, Command::check, "check",
                   "Say of every file whether it is good, where and why not, and what looks odd in it",
                   "matlib check laminates.mat foils.mat");
    const auto setFiles = [&options](const std::vector<std::string>& lists)
    { options.files = SplitPaths(lists); };
    check
        .add_option_function<std::vector<std::string>>(
            "FILE", setFiles, "Material files, folders of them, or - for standard input")
        ->type_name("")
        ->check(DescribeBadList);
    AddCheckOptions(check, options);
    check.final_callback(
        [&options]
        {
            if (!options.libraryFiles.empty())
            {
                throw CLI::ValidationError("--lib", "check takes its files without it");
            }
            if (options.files.empty() && options.explainedRule.empty())
            {
                throw CLI::RequiredError("FILE");
            }
        });
}

void AddFormat(CLI::App& app, Options& options)
{
    CLI::App& format = AddCommand(app, options, Command::format, "format",
                                  "Write material files anew in one layout; comments and numbers stay",
                                  "matlib format --check .");
    AddFormatOptions(format, options);
}

void AddChoose(CLI::App& app, Options& options)
{
    CLI::App& choose = AddCommand(app, options, Command::choose, "choose",
                                  "Open the dialog and print the material that is assigned in it (Windows)",
                                  "matlib choose --kind metal --lib foils.mat");
    choose
        .add_option_function<std::string>(
            "--kind", [&options](const std::string& text) { options.materialKind = KindNamed(text); },
            "What to choose: dielectric or metal")
        ->type_name("KIND")
        ->default_str("dielectric")
        ->check(DescribeBadKind);
    choose.add_option("--current", options.assigned, "The material that is assigned at first")
        ->type_name("NAME");
    AddLibraryFiles(choose, options);
}

void DescribeProgram(CLI::App& app, Options& options)
{
    app.allow_windows_style_options(false); // paths begin with "/"
    app.require_subcommand(1);
    app.set_version_flag("--version", "matlib " MATERIALLIBRARY_VERSION);
    app.footer("Example:\n  matlib value Getinaks --kind er --freq 2.5GHz\n\n"
               "Exit codes: 0 fine, 1 unknown material, no value or bad file, 2 wrong usage.");
    if (HasLoadableLibrary())
    {
        app.add_option("--dll", options.dllPath,
                       "The library; default: MaterialLibrary.dll beside the program")
            ->type_name("PATH");
    }
    AddJson(app, options);
    AddLibraryFiles(app, options);
    AddList(app, options);
    AddShow(app, options);
    AddValue(app, options);
    AddSweep(app, options);
    AddModel(app, options);
    AddPlot(app, options);
    AddCheck(app, options);
    AddFormat(app, options);
    AddImportOptions(AddCommand(app, options, Command::import, "import",
                                "Make a material file from tables of a spreadsheet, or one to start from",
                                "matlib import laminates.csv -o laminates.mat"),
                     options);
    AddChoose(app, options);
}

std::string DescribeWrongUsage(const CLI::App& app, const CLI::ParseError& error)
{
    const auto commands = app.get_subcommands();
    if (commands.empty())
    {
        const auto strangers = app.remaining();
        return (strangers.empty() ? "a command is missing" : Quote(strangers.front()) + " is unknown") +
               "; use list, show, value, sweep, model, plot, check, import, format or choose (see matlib "
               "--help)";
    }
    return std::string(error.what()) + " (see matlib " + commands.front()->get_name() + " --help)";
}
} // namespace

std::variant<Options, CommandLineEnd> ParseCommandLine(int argc, const char* const* argv)
{
    Options options;
    CLI::App app("Lists, shows and evaluates printed-circuit-board materials.", "matlib");
    DescribeProgram(app, options);
    try
    {
        app.parse(argc, argv);
        return options;
    }
    catch (const CLI::ParseError& error)
    {
        if (error.get_exit_code() != 0)
        {
            return CommandLineEnd{exitWrongUsage, {}, DescribeWrongUsage(app, error)};
        }
        std::ostringstream output; // help or version
        app.exit(error, output, output);
        return CommandLineEnd{exitFine, output.str(), {}};
    }
}
