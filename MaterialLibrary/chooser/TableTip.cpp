#include "chooser/TableTip.h"

#include "MaterialLibrary/materials.h"
#include "model/BulkAnswers.h"
#include "model/CMaterial.h"
#include "resources/Texts.h"
#include "shared/Misc_String/FormatNumber.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace
{
struct ToldFrequency
{
    const char* name;
    double hertz;
};
constexpr ToldFrequency told[] = {{"1 GHz", 1e9}, {"10 GHz", 10e9}};

constexpr int digitsOfRow = 13; // as in a cell
constexpr int digitsOfModel = 5;

std::string FormatAnswer(double value, unsigned source)
{
    const bool isKnown = std::isfinite(value) && source != ML_NO_FIT && source != ML_OUTSIDE_ROWS;
    if (!isKnown)
    {
        return LoadText(MLTEXT_NOT_AVAILABLE);
    }
    if (source == ML_FROM_ROW || source == ML_FROM_CONSTANT)
    {
        return FormatNumber(value, digitsOfRow);
    }
    return std::string("~").append(FormatNumber(value, digitsOfModel));
}
} // namespace

std::string DescribeTable(const IMaterial& material, int tableKind, double temperature)
{
    std::array<double, std::size(told)> frequencies{};
    std::array<double, std::size(told)> values{};
    std::array<std::uint8_t, std::size(told)> status{};
    std::ranges::transform(told, frequencies.begin(), &ToldFrequency::hertz);
    AnswerAll(dynamic_cast<const CMaterial&>(material),
              {.tableKind = tableKind,
               .temperature = temperature,
               .modelEverywhere = false,
               .straightRoughness = true,
               .frequencies = frequencies},
              values.data(), status.data());
    std::string text;
    for (std::size_t i = 0; i < std::size(told); ++i)
    {
        text += text.empty() ? "" : "\r\n";
        text.append(told[i].name).append(": ").append(FormatAnswer(values[i], status[i] & ML_STATUS_SOURCE));
    }
    return text;
}
