#pragma once

// The version of the library that these headers belong to. The build and the resource scripts read it here
// too.

// Changes only if existing hosts have to be rebuilt.
#define MATERIALLIBRARY_VERSION_MAJOR 1
// Increases with each addition.
#define MATERIALLIBRARY_VERSION_MINOR 0
// Increases with each correction.
#define MATERIALLIBRARY_VERSION_PATCH 0
// The three numbers as a text.
#define MATERIALLIBRARY_VERSION "1.0.0"
