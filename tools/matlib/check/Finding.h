#pragma once

#include <compare>
#include <string>
#include <string_view>
#include <tuple>

// Where something stands in a file, both counted from 1.
struct Place
{
    unsigned line = 1;
    unsigned column = 1;

    friend bool operator==(const Place&, const Place&) = default;
    friend std::strong_ordering operator<=>(const Place& a, const Place& b)
    {
        return std::tie(a.line, a.column) <=> std::tie(b.line, b.column);
    }
};

// Something that the author of a material file should know.
struct Finding
{
    bool isError = false;  // the library refuses the file; otherwise it reads it as it stands
    Place place;           // an error's is where reading stopped, a warning's where its subject begins
    std::string_view rule; // a word to tell findings apart: "format" for every error
    std::string text;      // a sentence or two
};
