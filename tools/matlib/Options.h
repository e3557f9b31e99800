#pragma once

#include "MaterialLibrary/MLTypes.h"

#include <string>
#include <vector>

enum class Command
{
    list,
    show,
    value,
    sweep,
    check,
    choose,
    plot
};

// What the user asked for; each command reads only its own part.
struct Options
{
    Command command = Command::list;
    std::vector<std::string> libraryFiles; // none: the built-in sample library
    std::string dllPath;                   // Windows only; empty: the library beside the program
    bool json = false;

    std::string material;                                // show, value
    std::vector<std::string> materials;                  // sweep, plot
    std::vector<double> temperatures = {25.0};           // sweep, plot, °C
    MLTABLEKIND property = MLTABLE_ER;                   // value
    double frequency = 0.0;                              // value, Hz
    double temperature = 25.0;                           // value, °C
    double sweepFrom = 1e6;                              // sweep, plot, Hz
    double sweepTo = 2e10;                               // sweep, plot, Hz
    int sweepPoints = 200;                               // sweep, plot, at least 2
    bool sweepLogarithmic = false;                       // sweep, plot
    std::vector<std::string> filesToCheck;               // check
    MLMATERIALKIND materialKind = MLMATERIAL_DIELECTRIC; // choose
    std::string assigned;                                // choose; empty: no material
    std::vector<MLTABLEKIND> plottedProperties;          // plot; none: all that the materials have
    std::string picturePath;                             // plot; ends in .svg or .png
    int pictureWidth = 760;                              // plot, pixels
    int pictureHeight = 400;                             // plot, pixels
    bool strict = false;                                 // check: warnings make a file bad
    bool allErrors = false;                              // check: go on behind the first error of a file
};
