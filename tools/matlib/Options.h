#pragma once

#include "MaterialLibrary/MLTypes.h"
#include "tools/matlib/import/ImportOptions.h"

#include <limits>
#include <optional>
#include <string>
#include <vector>

// Lengths in m, both ends included.
struct LengthRange
{
    double shortest = 0.0;
    double longest = std::numeric_limits<double>::infinity();
};

enum class Command
{
    list,
    show,
    value,
    sweep,
    check,
    format,
    import,
    choose,
    plot,
    model
};

// Which materials a list shows, and in which order. Texts count without the case of their letters.
struct ListFilter
{
    std::optional<MLMATERIALKIND> kind;
    std::string type; // this and the next three: empty for any
    std::string vendor;
    std::string technology;
    std::string text;                     // within name, type, vendor or comment
    std::optional<LengthRange> thickness; // m
    std::string sortKey;                  // empty: as in the files
};

enum class Colouring
{
    automatic, // on a terminal
    always,
    never
};

// What the user asked for; each command reads only its own part.
struct Options
{
    std::vector<std::string> libraryFiles;     // none: the default ones
    std::string dllPath;                       // Windows only; empty: the library beside the program
    std::string material;                      // show, value, model
    std::vector<std::string> materials;        // sweep, plot
    std::vector<double> temperatures = {25.0}; // sweep, plot, °C
    double frequency = 0.0;                    // value, Hz
    double temperature = 25.0;                 // value, model, °C
    ListFilter filter;                         // list
    double sweepFrom = 1e6;                    // sweep, plot, Hz
    double sweepTo = 2e10;                     // sweep, plot, Hz
    std::vector<std::string> files;            // check, format; "-" is standard input
    std::string materialPath; // format, import; "-": standard output; format: empty: where it is
    std::string assigned;     // choose; empty: no material
    std::vector<MLTABLEKIND> plottedProperties; // plot; none: all that the materials have
    std::string picturePath;                    // plot; ends in .svg or .png
    std::vector<std::string> allowedRules;      // check: no warnings of these
    std::vector<std::string> deniedRules;       // check: warnings of these make a file bad
    std::string explainedRule;                  // check: nothing but its page; empty: none
    std::vector<std::string> tables;            // import
    std::string templateName;                   // import: instead of tables; empty: none
    ImportOptions import;

    Command command = Command::list;
    MLTABLEKIND property = MLTABLE_ER;                   // value
    int polesPerDecade = 0;                              // model; 0: its terms
    int sweepPoints = 200;                               // sweep, plot, at least 2
    MLMATERIALKIND materialKind = MLMATERIAL_DIELECTRIC; // choose
    int pictureWidth = 760;                              // plot, pixels
    int pictureHeight = 400;                             // plot, pixels
    Colouring colouring = Colouring::automatic;          // check
    bool json = false;
    bool allMaterials = false;     // sweep, plot: instead of names
    bool smooth = false;           // value, sweep: the model everywhere
    bool sweepLogarithmic = false; // sweep, plot
    bool strict = false;           // check: warnings make a file bad
    bool checkOnly = false;        // format: nothing is written
    bool force = false;            // format, import: a file that is there is replaced
    bool allErrors = false;        // check: go on behind the first error of a file
};
