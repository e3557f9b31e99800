#pragma once

#include <string>
#include <unordered_map>

class CGridModel;

// Which rows of a material grid are selected and which one is current, by material and temperature, so that
// they are found again when the rows have been made anew.
class CRememberedRows
{
public:
    explicit CRememberedRows(const CGridModel& model);

    // Selects those of the rows that the grid still has. Where the current one has gone, the first selected
    // one becomes current.
    void Restore(CGridModel& model) const;

private:
    std::unordered_map<std::string, int> selected; // how many rows of that name and temperature
    std::string current;
    int currentColumn = 0;
};
