#pragma once

// Writing materials, for whoever makes or converts material files:
//
//     MaterialDescription core;
//     core.name = "Board core";
//     core.thickness = 200e-6;
//     core.tables = {{MLTABLE_ER, 25.0, {{1e9, 4.22}, {10e9, 4.094}}},
//                    {MLTABLE_LOSS_TANGENT, 25.0, {{1e9, 0.0192}, {10e9, 0.0212}}}};
//     core.remarks = {"From the data sheet of 2026, two points."};
//     WriteWholeFile("board.mat", WriteMaterials({&core, 1}), ExistingFile::keep); // WriteWholeFile.h
#include "writer/MaterialDescription.h"
#include "writer/WriteError.h"

#include <span>
#include <string>

// The text of a file that holds these materials, all of one kind, in this order. What is loaded from it has
// the same texts, numbers (bit for bit), tables and rows in the same order. Throws CUnwritableError for the
// first material that no file can hold.
[[nodiscard]] std::string WriteMaterials(std::span<const MaterialDescription> materials);
