#pragma once

#include <map>
#include <string>

// The translations of one domain, read from a catalogue file: lines msgid "TEXT" and msgstr "TRANSLATION" in
// UTF-8, \" \\ and \n in the texts, a text continued on further lines that begin with a quote, comments after
// #.
class CCatalogue
{
public:
    // Empty where the file cannot be read.
    explicit CCatalogue(const std::string& path);

    // The translation in the system's code page, which lives as long as the catalogue; null without one.
    [[nodiscard]] const char* Find(const char* text) const;

private:
    std::map<std::string, std::string, std::less<>> translations;
};
