#pragma once

// The version of the library that these headers belong to. Resource scripts and the build read it here too.

// Stays while hosts that were built before go on working.
#define MATERIALLIBRARY_VERSION_MAJOR 1
// Counts what was added.
#define MATERIALLIBRARY_VERSION_MINOR 0
// Counts what was mended.
#define MATERIALLIBRARY_VERSION_PATCH 0
// The three numbers as a text.
#define MATERIALLIBRARY_VERSION "1.0.0"
