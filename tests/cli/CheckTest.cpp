// What `matlib check` reads beside the library: it must refuse what the library refuses, and where.
#include "model/CFakeMaterialLib.h"
#include "reader/LoadMaterialFile.h"
#include "tests/CollectedMessages.h"
#include "tools/matlib/LibraryMessages.h"
#include "tools/matlib/check/CheckText.h"
#include "tools/matlib/check/Rules.h"

#include <algorithm>
#include <cmath>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <random>

namespace
{
std::string ReadTestFile(const std::string& name)
{
    std::ifstream stream(ML_SOURCE_DIR "/tests/cli/data/" + name, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

// "line:column: reason" of the first error; empty for a good file.
std::string RefusalOfLibrary(std::string text)
{
    CollectedMessages messages;
    CFakeMaterialLib library;
    if (LoadMaterialText(library, text, "x.mat"))
    {
        return {};
    }
    const FileProblem problem = FindFileProblem(messages.boxes.at(0).text, "x.mat").value();
    return std::to_string(*problem.line) + ":" + std::to_string(*problem.column) + ": " + problem.reason;
}

std::string RefusalOfCheck(std::string text, AfterError afterError)
{
    const std::string padded = PadText(std::move(text));
    const ParsedFile file = ParseMaterialFile(padded, afterError);
    if (file.errors.empty())
    {
        return {};
    }
    const LibraryMessage& error = file.errors.front().library.value();
    return std::to_string(error.place.line) + ":" + std::to_string(error.place.column) + ": " +
           std::string(error.reason);
}

void ExpectSameRefusal(const std::string& text)
{
    const std::string expected = RefusalOfLibrary(text);
    EXPECT_EQ(RefusalOfCheck(text, AfterError::stop), expected) << text;
    EXPECT_EQ(RefusalOfCheck(text, AfterError::goOn), expected) << text;
}

TEST(Check, RefusesCutAndDamagedFilesWhereTheLibraryDoes)
{
    for (const char* name : {"laminates.mat", "foils.mat", "odd.mat", "many-errors.mat"})
    {
        const std::string text = ReadTestFile(name);
        ASSERT_FALSE(text.empty()) << name;
        for (std::size_t i = 0; i < text.size(); ++i)
        {
            ExpectSameRefusal(text.substr(0, i));
            ExpectSameRefusal(text.substr(0, i) + text.substr(i + 1));
        }
    }
}

TEST(Check, GoesOnBehindABrokenHeader)
{
    const std::string text = PadText("{MATFILE}{DIELECTRIC(NAME=\"A\")(FOO=1)}{DIELECTRIC(NAME=\"B\")}");
    const ParsedFile file = ParseMaterialFile(text, AfterError::goOn);
    ASSERT_EQ(file.errors.size(), 2U);
    EXPECT_EQ(file.errors[1].library->place, (Place{1, 35}));
    ASSERT_EQ(file.materials.size(), 1U);
    EXPECT_EQ(file.materials[0].name, "B");
}
// What is shown of the first finding: its place, rule and text.
std::string Explain(const std::string& records)
{
    const std::string text = "{MAT_FILE}{VERSION=1.0}\n{DIELECTRIC" + records;
    CTextChecker checker(AfterError::stop);
    const CheckedText checked = checker.Check("x.mat", PadText(text));
    for (const Finding& finding : checked.findings)
    {
        if (finding.isError)
        {
            const Place place = CSourceLines(text).PlaceOf(finding.where.offset);
            return std::to_string(place.line) + ":" + std::to_string(place.column) + " " +
                   std::string(finding.rule) + ": " + finding.text;
        }
    }
    return {};
}

TEST(Check, ExplainsTheMistakeWhereItStands)
{
    struct
    {
        const char* records;
        const char* start;
        const char* advice;
    } const rows[] = {
        {"(THIKNESS = 1)}", "2:13 unknown-key", "did you mean THICKNESS?"},
        {"(thikness = 1)}", "2:13 unknown-key", "did you mean THICKNESS?"},
        {"(Rb = 1)}", "2:13 other-kind", "RB is a key of a metal"},
        {"(THICKNESS = 0,2mm)}", "2:25 unit", "Write 200e-6."},
        {"(THICKNESS = 8 mil)}", "2:25 unit", "Write 203.2e-6."},
        {"(THICKNESS = 200u)}", "2:25 unit", "Write 200e-6."},
        {"(THICKNESS = 0,2)}", "2:25 decimal-comma", "write 0.2."},
        {"(THICKNESS = \"0.2\")}", "2:25 number", "without quotes"},
        {"(THICKNESS = -007)}", "2:25 number", "Write -7."},
        {"(ER TABLE = 1GHz 4,2 2GHz 4,1)}", "2:29 decimal-comma", "write 4.2."},
        {"(ER TABLE = 1GHz 4.2 2 ghz 4.1)}", "2:33 blank-before-unit", "Write 2GHz,"},
        {"(ER TEMPERATURE = 25C VALUE = 4)}", "2:30 unit", "Write 25."},
        {"(ER TEMPERATURE = 298.15 K VALUE = 4)}", "2:30 unit", "Write 25."},
        {"(THICKNESS = 0.008in)}", "2:25 unit", "Write 203.2e-6."},
        {"(LOSSTANGENT VALUE = 1.9 %)}", "2:33 unit", "Write 0.019."},
        {"(ER = 4.2)}", "2:16 unknown-word", "(ER VALUE = 4.2)"},
        {"(ER value = 4.2)}", "2:16 letter-case", "Write VALUE."},
        {"(ER VALUE = 4 LOSSTANGENT VALUE = 0)}", "2:26 bracket-not-closed", "write (LOSSTANGENT"},
        {"(NAME = 'Board')}", "2:20 quotes-missing", "plain double quotes"},
        {"(NAME = \xE2\x80\x9C"
         "Board\xE2\x80\x9D)}",
         "2:20 quotes-missing", "plain double quotes"},
        {"(NAME = )}", "2:13 value-missing", "leave the record out"},
        {"(NAME: \"Board\")}", "2:13 unknown-key", "did you mean NAME?"},
        {"(NAME : \"Board\")}", "2:18 equals-missing", "instead of \":\""},
        {"(NAME = \"8\" core\")}", "2:24 surplus-word", "cannot contain a quote"},
        {"(NAME = \"A\n)\n(TYPE = ", "2:20 quote-not-closed", "closing quote"},
        {"(TECHNOLOGY = )\n}", "2:13 value-missing", "Core, Prepreg or Flexcore"},
        {"\n(NAME = \"A\"\n\n", "3:12 bracket-not-closed", "\")\" and \"}\""},
        {"(NAME = \"A\n\")}\n}", "4:1 bracket-surplus", "closes nothing"},
        {"}{dielectric}", "2:14 letter-case", "Write DIELECTRIC."},
    };
    for (const auto& row : rows)
    {
        const std::string explained = Explain(row.records);
        EXPECT_THAT(explained, testing::StartsWith(row.start)) << row.records;
        EXPECT_THAT(explained, testing::HasSubstr(row.advice)) << row.records;
    }
}

TEST(Check, JudgesWhatIsNearestInTemperature)
{
    CTextChecker checker(AfterError::stop);
    const CheckedText checked = checker.Check(
        "x.mat",
        PadText("{MAT_FILE}{VERSION=1.0}{DIELECTRIC(NAME=\"A\")(ER TEMPERATURE=25 TABLE=1MHz 4.1 1GHz 4)"
                "(LOSSTANGENT TEMPERATURE=25.05 VALUE=0.02)"
                "(LOSSTANGENT TEMPERATURE=25 TABLE=1MHz 0.02 1GHz 0.02)}"));
    EXPECT_EQ(std::ranges::count(checked.findings, rule::noFit, &Finding::rule), 0);
}

using Rows = std::vector<MLTBLENTRY>;

// The row that the model misses most, looked for without what a check keeps.
std::optional<std::size_t> FindMissedRow(const Rows& er, const Rows& loss)
{
    const auto model = CWidebandDebyeModel::Fit(PrepareData(er, loss));
    std::optional<std::size_t> missed;
    double worst = CFitCheck::tolerance;
    for (std::size_t i = 0; model && i < er.size(); ++i)
    {
        const double error = std::abs(model->EvaluateReal(er[i].frequency) - er[i].value) / er[i].value;
        missed = error > worst ? i : missed;
        worst = std::max(worst, error);
    }
    return missed;
}

// Er has its own frequencies, some of those of the loss tangent, more of them than are kept.
TEST(CFitCheck, JudgesRowsAtFrequenciesOfTheirOwn)
{
    std::mt19937 random(1);
    std::uniform_real_distribution<double> noise(-0.08, 0.08);
    CFitCheck fits;
    int missed = 0;
    for (int i = 0; i < 400; ++i)
    {
        Rows er;
        Rows loss;
        for (int k = 0; k < 12; ++k)
        {
            const double frequency = 1e6 * std::pow(10.0, k * 0.4);
            if (k % 2 == 0 || random() % 2 == 0)
            {
                er.push_back({frequency, 4.4 - 0.05 * k + noise(random)});
            }
            if (k % 3 == 0 || random() % 2 == 0)
            {
                loss.push_back({frequency, 0.02});
            }
        }
        for (int time = 0; time < 2; ++time)
        {
            const FitVerdict& verdict = fits.Judge(er, loss);
            const auto expected = FindMissedRow(er, loss);
            ASSERT_TRUE(verdict.hasModel && verdict.worst.has_value() == expected.has_value()) << i;
            ASSERT_TRUE(!expected || verdict.worst->index == *expected) << i;
            missed += expected ? 1 : 0;
        }
    }
    EXPECT_TRUE(missed > 80 && missed < 720) << missed;

    const Rows loss{{1e6, 0.02}, {1e9, 0.02}};
    EXPECT_TRUE(fits.Judge(Rows{{1e6, 4.0}, {1e9, 4.1}}, loss).takesSum);
    EXPECT_FALSE(fits.Judge(Rows{{1e6, 4.3}, {1e9, 4.1}}, loss).takesSum);
    EXPECT_FALSE(fits.Judge(Rows{{1e6, 4.0}}, loss).takesSum);
}
} // namespace
