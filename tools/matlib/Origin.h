#pragma once

#include <cstdint>
#include <span>
#include <string>

// Where values come from, in words: what the statuses of materials.h say.

// For CSV and JSON: "row", "model_above", "model+nearest_temperature".
[[nodiscard]] std::string OriginWord(std::uint8_t status);

// Whether there is a value at all.
[[nodiscard]] bool IsValue(std::uint8_t status);

// Counts what a user should know of the values that a command prints.
class COriginCounter
{
public:
    void Add(std::span<const std::uint8_t> statuses);

    // "2 of 10 values are extrapolated beyond the rows"; empty when there is nothing to say.
    [[nodiscard]] std::string Describe() const;

private:
    int values = 0;
    int extrapolated = 0;
    int otherTemperature = 0;
    int betweenRoughnessRows = 0;
};
