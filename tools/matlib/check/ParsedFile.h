#pragma once

#include "MaterialLibrary/MLTypes.h"
#include "tools/matlib/check/Finding.h"

#include <optional>
#include <vector>

// A material file as its author wrote it: the values that the library takes from it, each with its place.

struct ParsedRow
{
    double frequency = 0.0; // Hz
    double value = 0.0;
    std::string frequencyText; // empty where VALUE gives the row
    Place place;
};

struct ParsedTable
{
    MLTABLEKIND kind = MLTABLE_ER;
    double temperature = 25.0; // °C
    std::vector<ParsedRow> rows;
    Place place;
};

struct ParsedNumber
{
    double value = 0.0;
    Place place;
};

struct ParsedText
{
    std::string text;
    Place place;
};

struct ParsedMaterial
{
    MLMATERIALKIND kind = MLMATERIAL_DIELECTRIC;
    std::string name;                      // empty where the file gives none
    std::optional<ParsedNumber> thickness; // metres
    std::optional<ParsedText> technology;  // the word as it stands
    std::vector<ParsedTable> tables;
    Place place;
};

struct ParsedFile
{
    std::vector<ParsedMaterial> materials; // those without an error
    std::vector<Place> textsOverLines;     // records whose text in quotes runs past the end of its line
    std::vector<Finding> errors;
};

// Whether reading goes on behind an error, at the next record or material.
enum class AfterError
{
    stop,
    goOn
};

// Reads a material file for its author, by the library's own reader: it is refused for the same reason at the
// same place.
[[nodiscard]] ParsedFile ParseMaterialFile(std::string text, AfterError afterError);
