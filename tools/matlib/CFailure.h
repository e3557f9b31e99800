#pragma once

#include <stdexcept>

// What the user asked for cannot be done. The text says why and is meant for the user; the program ends
// with exitFailed.
class CFailure : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

// Exit codes of the program.
inline constexpr int exitFine = 0;
inline constexpr int exitFailed = 1;     // unknown material, no value, bad file
inline constexpr int exitWrongUsage = 2; // the command line makes no sense
