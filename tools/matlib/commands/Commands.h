#pragma once

#include "tools/matlib/ILibraryHost.h"
#include "tools/matlib/Options.h"

// The program's commands. Each writes its answer to the standard output stream and what is wrong with the
// library's files to the standard error stream, and returns the exit code. What cannot be done at all
// throws CFailure.

// One line per material that passes the filter.
[[nodiscard]] int RunList(const Options& options, ILibraryHost& host);

// Everything that the library's files say about one material.
[[nodiscard]] int RunShow(const Options& options, ILibraryHost& host);

// One property of a material at one frequency and temperature.
[[nodiscard]] int RunValue(const Options& options, ILibraryHost& host);

// The properties of materials at temperatures over a range of frequencies.
[[nodiscard]] int RunSweep(const Options& options, ILibraryHost& host);

// The model that values between a material's rows come from, or its Debye poles.
[[nodiscard]] int RunModel(const Options& options, ILibraryHost& host);

// The properties of materials over a range of frequencies as a picture.
[[nodiscard]] int RunPlot(const Options& options, ILibraryHost& host);

// Whether each file can be read, where and why not, and what looks odd in it, by the library's own reader.
// exitFailed if any is bad.
[[nodiscard]] int RunCheck(const Options& options);

// Material files in one layout, each in its place, to another file or to standard output. exitFailed if any
// is bad or cannot be written, or if it is only to be checked and would change.
[[nodiscard]] int RunFormat(const Options& options);

// A material file from tables of spreadsheets, or one to start from. exitFailed, and nothing written, where
// the tables are not understood.
[[nodiscard]] int RunImport(const Options& options);

// The material that the user assigns in the library's dialog. exitFailed when there is none.
[[nodiscard]] int RunChoose(const Options& options, ILibraryHost& host);
