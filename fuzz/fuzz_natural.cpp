// Three texts, one per line; the first byte chooses whether bytes from 0x80 up may be lead bytes.

#include "shared/Misc_String/CodePage.h"
#include "shared/Misc_String/CompareNatural.h"

#include <array>
#include <cctype>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

namespace
{
void Require(bool holds)
{
    if (!holds)
    {
        std::abort();
    }
}

std::string WithoutCase(std::string text)
{
    for (char& c : text)
    {
        c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    }
    return text;
}

// A text of its own heap block: reading behind its end is seen.
std::array<std::string, 3> SplitLines(std::string_view input)
{
    std::array<std::string, 3> lines;
    for (std::string& line : lines)
    {
        const std::size_t end = input.find('\n');
        line = std::string(input.substr(0, end).substr(0, input.find('\0')));
        line.shrink_to_fit();
        input = end == std::string_view::npos ? std::string_view() : input.substr(end + 1);
    }
    return lines;
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size == 0)
    {
        return 0;
    }
    const bool doubleByte = data[0] % 2 == 1;
    if (doubleByte)
    {
        SetLeadByteTest([](unsigned char byte) { return byte % 2 == 0; });
    }
    else
    {
        SetLeadByteTest(nullptr);
    }

    const auto texts = SplitLines({reinterpret_cast<const char*>(data) + 1, size - 1});
    std::array<std::array<int, 3>, 3> order{};
    for (std::size_t i = 0; i < 3; ++i)
    {
        for (std::size_t j = 0; j < 3; ++j)
        {
            order[i][j] = CompareNatural(texts[i].c_str(), texts[j].c_str());
            Require((order[i][j] == 0) == (WithoutCase(texts[i]) == WithoutCase(texts[j])));
        }
    }
    for (std::size_t i = 0; i < 3; ++i)
    {
        for (std::size_t j = 0; j < 3; ++j)
        {
            Require(order[i][j] == -order[j][i]);
            for (std::size_t k = 0; k < 3 && !doubleByte; ++k)
            {
                Require(order[i][j] > 0 || order[j][k] > 0 ||
                        order[i][k] == std::min(order[i][j], order[j][k]));
            }
        }
    }
    return 0;
}
