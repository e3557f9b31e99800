#include "reader/ReadError.h"
#include "tests/writer/DescribeLoaded.h"
#include "tests/writer/RandomMaterials.h"
#include "writer/FormatMaterialText.h"
#include "writer/SpellNumber.h"

#include <filesystem>
#include <fstream>
#include <iterator>

namespace
{
TEST(FormatMaterialText, HasOneLayout)
{
    const std::string header = "{MAT_FILE}\n{VERSION=1.0}\n";
    struct Case
    {
        std::string text;
        std::string formatted;
    };
    const Case cases[] = {
        {"{ MAT_FILE }{VERSION = 1 . 0}", header},
        {"\n\n* top \t\n\n\n*second\n\n\n{MAT_FILE}\n\n\n{VERSION=1.0} * behind\n\n",
         "* top\n\n*second\n\n{MAT_FILE}\n\n{VERSION=1.0}  * behind\n"},
        {header + "{DIELECTRIC(NAME=\"a  b\")(TECHNOLOGY=Core)(THICKNESS=\t200.0E-6)(ER VALUE=4.20)\n}\n",
         header + "\n{DIELECTRIC\n(NAME        = \"a  b\")\n(TECHNOLOGY  = Core)\n(THICKNESS   = 200.0E-6)\n"
                  "(ER          VALUE = 4.20)\n}\n"},
        {header + "{METAL (RB=1e-8)(ROUGHTOP TEMPERATURE=25 TABLE=1GHz 1.2 * low\n\n\n10GHz   1.4\n * high\n"
                  "12.5GHz 1.50 TEMPERATURE=30) (DRAFT)\n\n} * end\n* next\n{METAL}",
         header +
             "\n{METAL\n(RB       = 1e-8)\n(ROUGHTOP TEMPERATURE = 25 TABLE =\n    1GHz    1.2  * low\n\n"
             "    10GHz   1.4\n    * high\n    12.5GHz 1.50\n    TEMPERATURE = 30\n)\n(DRAFT)\n\n}  * end\n"
             "\n* next\n{METAL\n}\n"},
        {header + "{METAL (NAME * which\n=\"x\")(ROUGHBTM TABLE=2GHz 1\n* all\n)* done\n}",
         header + "\n{METAL\n(NAME  * which\n    = \"x\")\n(ROUGHBTM TABLE =\n    2GHz 1\n    * all\n)  * "
                  "done\n}\n"},
        {"{MAT_FILE}{VERSION=1.0}\r\n{METAL\r\n}\n", "{MAT_FILE}\r\n{VERSION=1.0}\r\n\r\n{METAL\r\n}\r\n"},
        {header + std::string("\0 the rest\n\n\n", 12), header + std::string("\0 the rest\n\n\n", 12)},
    };
    for (const Case& each : cases)
    {
        EXPECT_EQ(FormatMaterialText(each.text), each.formatted);
        EXPECT_EQ(FormatMaterialText(each.formatted), each.formatted);
    }
}

void ExpectSameAndStable(const std::string& text)
{
    const std::string formatted = FormatMaterialText(text);
    ASSERT_TRUE(AreSame(DescribeLoaded(formatted), DescribeLoaded(text))) << text << "\n" << formatted;
    ASSERT_EQ(FormatMaterialText(formatted), formatted) << text;
}

// Writes materials as nobody would: pieces with anything between them that the format allows.
class CMessyText
{
public:
    std::string Write()
    {
        text.clear();
        last.clear();
        *this += {"{", "MAT_FILE", "}", "{", "VERSION"};
        AddValue(random.Choose(2) == 0 ? "1" : "0");
        AddPiece(".");
        AddValue("0", "");
        AddPiece("}");
        for (const MaterialDescription& each : random.Make())
        {
            *this +=
                {"{", each.kind == MLMATERIAL_METAL ? "METAL" : "DIELECTRIC", "(", "DRAFT", ")", "(", "NAME"};
            AddValue("\"" + each.name + "\"");
            *this += {")"};
            for (const TableDescription& table : each.tables)
            {
                AddTable(table);
            }
            AddPiece("}");
        }
        AddGap("}", "{");
        return text;
    }

    std::vector<std::string> comments;

private:
    void operator+=(std::initializer_list<const char*> pieces)
    {
        for (const char* const each : pieces)
        {
            AddPiece(each);
        }
    }

    void AddTable(const TableDescription& table)
    {
        constexpr const char* keys[] = {"ER", "LOSSTANGENT", "ROUGHTOP", "ROUGHBTM"};
        *this += {"(", keys[table.kind], "TABLE", "="};
        for (const MLTBLENTRY& row : table.rows)
        {
            AddPiece(SpellFrequency(row.frequency));
            AddValue(random.Choose(5) == 0 ? oddNumbers[random.Choose(std::size(oddNumbers))]
                                           : SpellNumber(row.value),
                     " ");
        }
        AddPiece("TEMPERATURE");
        AddValue(SpellNumber(table.temperature));
        AddPiece(")");
    }

    void AddPiece(const std::string& piece)
    {
        AddGap(last, piece);
        text += piece;
        last = piece;
    }

    void AddValue(const std::string& value, const std::string& before = "=")
    {
        before == "=" ? AddPiece("=") : static_cast<void>(text += before);
        text += std::string(random.Choose(3), '\t') + value;
        last = value;
    }

    void AddGap(const std::string& before, const std::string& after)
    {
        constexpr std::string_view signs = "{}()=.";
        const auto isSign = [&](const std::string& piece)
        { return piece.size() == 1 && signs.find(piece[0]) != std::string_view::npos; };
        switch (random.Choose(5))
        {
        case 0:
            text += std::string(random.Choose(3) + 1, ' ');
            break;
        case 1:
            text += std::string(random.Choose(4) + 1, '\n');
            break;
        case 2:
            comments.push_back("*" + random.MakeText("\r\n \t", 9));
            text += "\r\n " + comments.back() + " \n";
            break;
        case 3:
            comments.push_back("*" + random.MakeText("\r\n \t", 9));
            text += comments.back() + "\n\n";
            break;
        default:
            text += isSign(before) || isSign(after) ? "" : " ";
        }
    }

    static constexpr const char* oddNumbers[] = {"+.5E-3", "4.",    "-0",        "1e)",
                                                 "2E\n",   "1e \t", "0.000e000", "1e999"};
    CRandomMaterials random;
    std::string text;
    std::string last;
};

TEST(FormatMaterialText, LoadsTheSameAndKeepsComments)
{
    CMessyText messy;
    for (int i = 0; i < 800; ++i)
    {
        messy.comments.clear();
        const std::string text = messy.Write();
        ASSERT_NO_FATAL_FAILURE(ExpectSameAndStable(text));
        const std::string formatted = FormatMaterialText(text);
        std::size_t at = 0;
        for (const std::string& comment : messy.comments)
        {
            at = formatted.find(comment, at);
            ASSERT_NE(at, std::string::npos) << comment << " in " << text;
            at += comment.size();
        }
    }
}

// Every example: those that the library reads stay what they are, the others are refused.
TEST(FormatMaterialText, FollowsTheLibrary)
{
    int formattedCount = 0;
    int refusedCount = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(ML_SOURCE_DIR "/examples"))
    {
        if (entry.path().extension() != ".mat")
        {
            continue;
        }
        std::ifstream file(entry.path(), std::ios::binary);
        const std::string text(std::istreambuf_iterator<char>(file), {});
        CFakeMaterialLib library;
        if (ReadMaterials(library, PadText(text).c_str()))
        {
            EXPECT_THROW(static_cast<void>(FormatMaterialText(text)), CParseError) << entry.path();
            ++refusedCount;
        }
        else
        {
            ASSERT_NO_FATAL_FAILURE(ExpectSameAndStable(text));
            ++formattedCount;
        }
    }
    EXPECT_GE(formattedCount, 2);
    EXPECT_GE(refusedCount, 30);
}
} // namespace
