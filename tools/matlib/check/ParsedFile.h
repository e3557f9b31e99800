#pragma once

#include "MaterialLibrary/MLTypes.h"
#include "tools/matlib/check/Finding.h"

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

class CFakeMaterialLib;

// A material file as its author wrote it: the values that the library takes from it, each with its place.
// Texts are parts of the file's.

struct ParsedTable
{
    MLTABLEKIND kind = MLTABLE_ER;
    double temperature = 25.0; // °C
    std::span<const MLTBLENTRY> rows;
    std::span<const std::string_view> words; // the frequency of each row, or the word VALUE that gives it
    std::string_view key;
};

// What the library derives for a temperature in the middle between those of two tables.
struct ParsedBetween
{
    MLTABLEKIND kind = MLTABLE_ER;
    double temperature = 25.0; // °C
    double value = 0.0;        // at every frequency
};

struct ParsedMaterial
{
    MLMATERIALKIND kind = MLMATERIAL_DIELECTRIC;
    std::string_view block;
    std::string_view name; // its data null where the file gives none
    std::string_view thicknessKey;
    std::optional<double> thickness; // metres
    std::string_view technology;     // its data null where the file gives none
};

struct ParsedTables
{
    std::span<const ParsedTable> tables;
    std::span<const ParsedBetween> betweens;
};

// Hears of each material without an error while the file is read. The rows last as long as the
// library, all else of the tables for the call only: it would take more memory than the rows.
using MaterialListener = std::function<void(const ParsedMaterial&, const ParsedTables&)>;

struct ParsedFile
{
    std::vector<ParsedMaterial> materials; // those without an error
    std::vector<std::string_view> texts;   // those in quotes that are not on one line or not ASCII
    std::vector<Finding> errors;
};

// Whether reading goes on behind an error, at the next record or material.
enum class AfterError
{
    stop,
    goOn
};

// Reads a material file for its author, by the library's own reader: it is refused for the same reason at the
// same place. The text has been through PadText; it must outlive what is returned. The materials go into the
// library.
[[nodiscard]] ParsedFile ParseMaterialFile(const std::string& paddedText, AfterError afterError,
                                           CFakeMaterialLib& library, const MaterialListener& onMaterial);

// The same for those who do not want the tables.
[[nodiscard]] ParsedFile ParseMaterialFile(const std::string& paddedText, AfterError afterError);
