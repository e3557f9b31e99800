// Materials are checked on several threads: what is found must be what each material gives by itself.
#include "reader/LoadMaterialFile.h"
#include "tools/matlib/check/CheckText.h"
#include "tools/matlib/check/FindWarnings.h"
#include "tools/matlib/check/Rules.h"

#include <algorithm>
#include <cstdlib>
#include <gtest/gtest.h>
#include <new>

namespace
{
thread_local long allocationsLeft = -1; // of this thread; below 0 as many as it likes
} // namespace

void* operator new(std::size_t size)
{
    void* const memory = allocationsLeft == 0 ? nullptr : std::malloc(size);
    if (memory == nullptr)
    {
        throw std::bad_alloc();
    }
    allocationsLeft -= allocationsLeft > 0 ? 1 : 0;
    return memory;
}

void* operator new(std::size_t size, const std::nothrow_t&) noexcept // as sorting asks for it
{
    return std::malloc(size);
}

void operator delete(void* memory) noexcept
{
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept
{
    std::free(memory);
}

namespace
{
const std::string header = "{MAT_FILE}\n{VERSION=1.0}\n";

// Of every seven two have a row that the model misses, one has too few rows for a model, and one a
// temperature without a loss tangent.
std::string MakeMaterial(int number)
{
    const int kind = number % 7;
    const std::string er = std::to_string(4.4 + 0.000001 * number);
    const std::string rows =
        kind == 4 ? "1GHz 0.02" : "1MHz 0.02 10MHz 0.02 100MHz 0.021 1GHz 0.02 10GHz 0.019";
    return "{DIELECTRIC\n(NAME = \"Laminate " + std::to_string(number) +
           "\")\n(THICKNESS = 100e-6)\n(ER TABLE = 1MHz " + er + " 10MHz 4.27 100MHz " +
           (kind == 2 || kind == 3 ? "3.6" : "4.14") +
           " 1GHz 4.01 10GHz 3.88)\n(LOSSTANGENT TABLE = " + rows + ")\n" +
           (kind == 5 ? "(ER TEMPERATURE = 60 VALUE = 4)\n" : "") + "}\n";
}

struct Found
{
    std::size_t offset;
    std::string rule;
    std::string text;

    bool operator==(const Found&) const = default;
};

void Append(std::vector<Found>& all, const std::vector<Finding>& findings, std::size_t shift)
{
    for (const Finding& finding : findings)
    {
        all.push_back({finding.where.offset + shift, std::string(finding.rule), finding.text});
    }
}

TEST(CheckThreads, FindWhatEachMaterialGivesByItself)
{
    constexpr int materials = 6000; // several batches
    std::string text = header;
    std::vector<Found> expected;
    for (int i = 0; i < materials; ++i)
    {
        const std::string material = MakeMaterial(i);
        Append(expected, CheckText("x.mat", header + material).findings, text.size() - header.size());
        text += material;
        if (i == materials / 2)
        {
            text += "{DIELECTRIC (FOO = 1)}\n";
        }
    }
    ASSERT_EQ(std::ranges::count(expected, rule::fitMissesRows, &Found::rule), materials / 7 * 2);
    ASSERT_EQ(std::ranges::count(expected, rule::noFit, &Found::rule), materials / 7 * 2);

    const std::string padded = PadText(text);
    for (const std::size_t threads : {1U, 2U, 3U, 8U})
    {
        std::vector<CFitCheck> fits(threads);
        for (const char* time : {"first", "second"})
        {
            const CheckedFile checked = FindWarnings(padded, AfterError::goOn, fits);
            std::vector<Found> found;
            Append(found, checked.warnings, 0);
            EXPECT_TRUE(found == expected) << threads << " threads, for the " << time << " time";
            EXPECT_EQ(checked.file.errors.size(), 1U);
            EXPECT_EQ(checked.file.materials.size(), static_cast<std::size_t>(materials));
        }
    }
    EXPECT_FALSE(MakeFitChecks().empty());
}

// The threads still look at rows then.
TEST(CheckThreads, EndBeforeTheRowsWhereReadingRunsOutOfMemory)
{
    std::string text = header;
    for (int i = 0; i < 3000; ++i)
    {
        text += MakeMaterial(i);
    }
    const std::string padded = PadText(text);
    std::vector<CFitCheck> fits(4);
    int failures = 0;
    for (long allocations = 0; allocations < 6000; allocations = allocations * 5 / 4 + 1)
    {
        allocationsLeft = allocations;
        try
        {
            (void)FindWarnings(padded, AfterError::goOn, fits);
        }
        catch (const std::bad_alloc&)
        {
            ++failures;
        }
        allocationsLeft = -1;
    }
    EXPECT_GT(failures, 10);
}
} // namespace
