#pragma once

#include "tools/matlib/check/CFitCheck.h"
#include "tools/matlib/check/ParsedFile.h"

class CWarnings;

// The thicknesses that nobody wonders at, in metres.
inline constexpr double leastThickness = 1e-6;
inline constexpr double mostThickness = 0.01; // the chooser's range before the user changes it

// Warns of what is odd about a material by itself.
void CheckMaterial(CWarnings& warnings, const ParsedMaterial& material, const ParsedTables& tables,
                   CFitCheck& fits);

// Parts of it: one table, and what the tables of a dielectric come to together.
void CheckRows(CWarnings& warnings, const ParsedTable& table);
void CheckFits(CWarnings& warnings, const ParsedTables& material, CFitCheck& fits);
