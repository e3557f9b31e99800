#include "tools/matlib/Origin.h"

#include "MaterialLibrary/materials.h"

namespace
{
int SourceOf(std::uint8_t status)
{
    return status & ML_STATUS_SOURCE;
}

bool IsExtrapolated(std::uint8_t status)
{
    const int source = SourceOf(status);
    return source == ML_FROM_MODEL_BELOW || source == ML_FROM_MODEL_ABOVE || source == ML_OUTSIDE_ROWS;
}
} // namespace

std::string OriginWord(std::uint8_t status)
{
    constexpr const char* words[] = {"row",          "constant",     "model",  "model_below", "model_above",
                                     "between_rows", "outside_rows", "no_fit", "no_data"};
    const int source = SourceOf(status);
    std::string word = source < static_cast<int>(std::size(words)) ? words[source] : "unknown";
    word += (status & ML_TEMPERATURE_NEAREST) != 0 ? "+nearest_temperature" : "";
    word += (status & ML_TEMPERATURE_BETWEEN) != 0 ? "+between_temperatures" : "";
    return word;
}

bool IsValue(std::uint8_t status)
{
    return SourceOf(status) < ML_NO_FIT;
}

void COriginCounter::Add(std::span<const std::uint8_t> statuses)
{
    for (const std::uint8_t status : statuses)
    {
        if (IsValue(status))
        {
            ++values;
            extrapolated += IsExtrapolated(status) ? 1 : 0;
            otherTemperature += (status & (ML_TEMPERATURE_NEAREST | ML_TEMPERATURE_BETWEEN)) != 0 ? 1 : 0;
            betweenRoughnessRows += SourceOf(status) == ML_BETWEEN_ROWS ? 1 : 0;
        }
    }
}

std::string COriginCounter::Describe() const
{
    std::string text;
    const auto say = [&](int count, const char* one, const char* several)
    {
        if (count > 0)
        {
            text += text.empty() ? "" : values == 1 ? " and " : ", ";
            text += values == 1 ? one : std::to_string(count) + several;
        }
    };
    say(extrapolated, "is extrapolated beyond the rows", " extrapolated beyond the rows");
    say(otherTemperature, "comes from another temperature", " from another temperature");
    say(betweenRoughnessRows, "lies between two rows of a roughness factor",
        " between two rows of a roughness factor");
    if (text.empty())
    {
        return text;
    }
    return values == 1 ? "the value " + text : "of " + std::to_string(values) + " values: " + text;
}
