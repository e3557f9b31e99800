#include "model/CFakeMaterialLib.h"
#include "model/CMaterial.h"
#include "reader/LoadMaterialFile.h"
#include "resources/FormatText.h"
#include "resources/Texts.h"
#include "tests/CollectedMessages.h"

#include <gtest/gtest.h>
#include <string>

namespace
{
const std::string header = "{MAT_FILE}\n{VERSION=1.0}\n";

bool Load(CFakeMaterialLib& library, const std::string& text)
{
    return LoadMaterialText(library, text, "x.mat");
}

std::string Expect(MLTEXTID reason, unsigned line, unsigned column)
{
    return "x.mat, line " + std::to_string(line) + ", column " + std::to_string(column) + ": " +
           LoadText(reason);
}

TEST(Reader, RefusesWhatBreaksTheFormatAndSaysWhere)
{
    struct Row
    {
        std::string text;
        MLTEXTID reason;
        unsigned line;
        unsigned column;
    };
    const std::string open = header + "{DIELECTRIC\n";
    const Row rows[] = {
        {"", MLTEXT_BAD_HEADER, 1, 0},
        {"{", MLTEXT_BAD_HEADER, 1, 1},
        {"{mat_file}", MLTEXT_BAD_HEADER, 1, 9},
        {"{MAT_FILE}", MLTEXT_BAD_HEADER, 1, 10},
        {"{MAT_FILE}{VERSION 1.0}", MLTEXT_BAD_HEADER, 1, 20},
        {"{MAT_FILE}{VERSION=\n1.0}", MLTEXT_BAD_HEADER, 1, 19},
        {"{MAT_FILE}{VERSION=01.0}", MLTEXT_BAD_HEADER, 1, 20},
        {"{MAT_FILE}{VERSION=1.}", MLTEXT_BAD_HEADER, 1, 21},
        {"{MAT_FILE}{VERSION=1,0}", MLTEXT_BAD_HEADER, 1,
         22}, // here a comma is no delimiter: ",0" is one word
        {"{MAT_FILE}{VERSION=1.0", MLTEXT_BAD_HEADER, 1, 22},
        {"{MAT_FILE}{VERSION=1.1}", MLTEXT_NEWER_VERSION, 1, 23},
        {"{MAT_FILE}\r\n\r{VERSION=2.0}", MLTEXT_NEWER_VERSION, 3, 13},
        {"{MAT_FILE}{VERSION=99999999999999.0}", MLTEXT_NEWER_VERSION, 1, 36},
        {header + "x", MLTEXT_BRACKET_EXPECTED, 3, 1},
        {header + "{", MLTEXT_MISSING_VALUE, 3, 1},
        {header + "{OTHER}", MLTEXT_BRACKET_EXPECTED, 3, 7},
        {open, MLTEXT_MISSING_VALUE, 4, 0},
        {open + "NAME", MLTEXT_BRACKET_EXPECTED, 4, 4},
        {open + "(", MLTEXT_MISSING_VALUE, 4, 1},
        {open + "(NAME", MLTEXT_EQUALS_EXPECTED, 4, 5},
        {open + "(NAME \"x\")", MLTEXT_EQUALS_EXPECTED, 4, 9},
        {open + "(NAME=\n\"x\")", MLTEXT_MISSING_VALUE, 4, 6},
        {open + "(NAME= x)", MLTEXT_MISSING_VALUE, 4, 7},
        {open + "(NAME=\"x\" 5)", MLTEXT_BRACKET_EXPECTED, 4, 11},
        {open + "(NAME=\"x\"", MLTEXT_BRACKET_EXPECTED, 4, 9},
        {open + "(NAME=\"open", MLTEXT_BRACKET_EXPECTED, 4, 11},
        {open + "(FOO=5)", MLTEXT_BRACKET_EXPECTED, 4, 5},
        {open + "(RB=5)", MLTEXT_BRACKET_EXPECTED, 4, 4},
        {open + "(name=\"x\")", MLTEXT_BRACKET_EXPECTED, 4, 6},
        {open + "(TECHNOLOGY=", MLTEXT_MISSING_VALUE, 4, 12},
        {open + "(THICKNESS=thin)", MLTEXT_BAD_NUMBER, 4, 11},
        {open + "(THICKNESS=\n1)", MLTEXT_BAD_NUMBER, 4, 11},
        {open + "(ER=5)", MLTEXT_UNKNOWN_TABLE_ITEM, 4, 4},
        {open + "(ER VALUE 5)", MLTEXT_EQUALS_EXPECTED, 4, 11},
        {open + "(ER VALUE=)", MLTEXT_BAD_NUMBER, 4, 10},
        {open + "(ER VALUE", MLTEXT_EQUALS_EXPECTED, 4, 9},
        {open + "(ER TEMPERATURE=warm)", MLTEXT_BAD_NUMBER, 4, 16},
        {open + "(ER TABLE", MLTEXT_EQUALS_EXPECTED, 4, 9},
        {open + "(ER TABLE=1GHz)", MLTEXT_FREQUENCY_WITHOUT_VALUE, 4, 14},
        {open + "(ER TABLE=1GHz\n4.3)", MLTEXT_FREQUENCY_WITHOUT_VALUE, 4, 14},
        {open + "(ER TABLE=1GHz 4.3 WORD)", MLTEXT_UNKNOWN_TABLE_ITEM, 4, 23},
        {open + "(ER TABLE=1e999 4.3)", MLTEXT_UNKNOWN_TABLE_ITEM, 4, 15},
        {open + "(ER VALUE=5", MLTEXT_MISSING_VALUE, 4, 11},
        {open + "(ER", MLTEXT_MISSING_VALUE, 4, 3},
        {open + "}{METAL}", MLTEXT_MIXED_KINDS, 4, 7},
        {header + "{METAL}{DIELECTRIC", MLTEXT_MIXED_KINDS, 3, 18},
        {header + "{METAL(THICKNESS=1)}", MLTEXT_BRACKET_EXPECTED, 3, 17},
    };
    for (const Row& row : rows)
    {
        CollectedMessages messages;
        CFakeMaterialLib library;
        library.FillSampleLibrary();
        EXPECT_FALSE(Load(library, row.text)) << row.text;
        ASSERT_EQ(messages.boxes.size(), 1u) << row.text;
        EXPECT_EQ(messages.boxes[0].text, Expect(row.reason, row.line, row.column)) << row.text;
        EXPECT_EQ(messages.boxes[0].style, msg::boxIconExclamation);
        EXPECT_EQ(library.GetMaterialCount(), 0) << row.text; // what was loaded before goes too
    }
}

TEST(Reader, AcceptsTheWorkedExampleWithEveryLineBreak)
{
    for (const std::string lineBreak : {"\n", "\r", "\r\n"})
    {
        std::string text;
        for (const char* const line :
             {"{MAT_FILE}", "{VERSION=1.0}", "* dielectrics of one vendor", "{DIELECTRIC",
              "(NAME = \"Getinaks\")", "(TYPE = \"FR4-MTG\") (TECHNOLOGY = Core) (VENDOR = \"Nanya\")",
              "(THICKNESS = 0.0002)", "(ER TEMPERATURE = 25 TABLE = 1MHz 4.6 1GHz 4.3 )",
              "(LOSSTANGENT VALUE = 0.02 )", "}"})
        {
            text += line + lineBreak;
        }
        CollectedMessages messages;
        CFakeMaterialLib library;
        ASSERT_TRUE(Load(library, text));
        ASSERT_EQ(library.GetMaterialCount(), 1);
        IMaterial& material = *library.GetMaterial(0);
        EXPECT_STREQ(material.GetName(), "Getinaks");
        EXPECT_STREQ(material.GetTypeName(), "FR4-MTG");
        EXPECT_STREQ(material.GetVendor(), "Nanya");
        EXPECT_EQ(material.GetKind(), MLMATERIAL_DIELECTRIC);
        double thickness = 0.0;
        EXPECT_TRUE(material.GetAttribute(MLATTR_THICKNESS, &thickness));
        EXPECT_EQ(thickness, 0.0002);
        const IMaterialTable& permittivity = *material.GetTableAt(0);
        ASSERT_EQ(permittivity.GetEntryCount(), 2);
        EXPECT_EQ(permittivity.GetEntry(0).frequency, 1e6);
        EXPECT_EQ(permittivity.GetEntry(1).value, 4.3);
        EXPECT_EQ(material.GetTableAt(1)->GetEntry(0).frequency, 1e9);
        EXPECT_EQ(messages.boxes.size(), 0u);
    }
}

TEST(Reader, AcceptsOddButValidTexts)
{
    struct Row
    {
        std::string text;
        int materials;
    };
    const std::string open = header + "{DIELECTRIC ";
    const Row rows[] = {
        {"{MAT_FILE}{VERSION=0.9}", 0},
        {"* note\n{ MAT_FILE }\n{ VERSION = 0 . 77 }*end", 0},
        {header + "{UNKNOWN", 0}, // the word of an unknown block is passed over
        {header + "{UNKNOWN{METAL}", 1},
        {open + "}", 1},
        {open + "(FOO)())}", 1}, // words alone pass, also a bracket
        {open + "(NAME=\"a\")(NAME=\"b\")}{DIELECTRIC}", 2},
        {open + "(TECHNOLOGY=\nPrepreg)}", 1},
        {open + "(TECHNOLOGY=))}", 1},
        {open + "(ER)}", 1},
        {open + "(ER TABLE=)}", 1},
        {open + "(ER TABLE=1 2 3 4 TEMPERATURE=50 TABLE=5 6)}", 1},
        {open + "(COMMENT=\"*no comment\")*}\n}", 1},
        {header + "{METAL(RB=1.7e-8)(ROUGHTOP VALUE=1)(ROUGHBTM TABLE=1G 1.5)}", 1},
        {open + "}" + std::string(1, '\0') + "garbage", 1}, // a NUL ends the text
    };
    for (const Row& row : rows)
    {
        CollectedMessages messages;
        CFakeMaterialLib library;
        EXPECT_TRUE(Load(library, row.text)) << row.text;
        EXPECT_EQ(library.GetMaterialCount(), row.materials) << row.text;
        EXPECT_EQ(messages.boxes.size(), 0u) << row.text;
    }
}

TEST(Reader, LaterRecordsOverwriteAndTablesAdd)
{
    CFakeMaterialLib library;
    ASSERT_TRUE(Load(library,
                     header + "{DIELECTRIC (NAME=\"a\") (NAME=\"b\") (TECHNOLOGY=Flexcore) (THICKNESS=1)"
                              "(THICKNESS=2e-4) (ER TEMPERATURE=50 TEMPERATURE=85 TABLE=1GHz 4.3 2000MHz 4.2)"
                              "(ER VALUE=9 TABLE=1k 3 VALUE=4) (ER TABLE=-5m 1 x10K 2) }"));
    IMaterial& material = *library.GetMaterial(0);
    EXPECT_STREQ(material.GetName(), "b");
    double thickness = 0.0;
    EXPECT_TRUE(material.GetAttribute(MLATTR_THICKNESS, &thickness));
    EXPECT_EQ(thickness, 2e-4);
    int technology = 0;
    EXPECT_TRUE(material.GetIntAttribute(MLATTR_TECHNOLOGY, &technology));
    EXPECT_EQ(technology, MLTECHNOLOGY_FLEXCORE);
    ASSERT_EQ(material.CountTables(MLTABLE_ER), 3);
    EXPECT_EQ(material.GetTableAt(0)->GetTemperature(), 85.0);
    EXPECT_EQ(material.GetTableAt(0)->GetEntry(1).frequency, 2e9);
    EXPECT_EQ(material.GetTableAt(1)->GetEntryCount(), 1);
    EXPECT_EQ(material.GetTableAt(1)->GetEntry(0).value, 4.0);
    EXPECT_EQ(material.GetTableAt(1)->GetTemperature(), 25.0);
    EXPECT_EQ(material.GetTableAt(2)->GetEntry(0).frequency, -0.005);
    EXPECT_EQ(material.GetTableAt(2)->GetEntry(1).frequency, 1e4); // a frequency may follow other letters
}

TEST(FormatText, FillsInWithoutTrustingTheText)
{
    EXPECT_EQ(FormatText("%s(%u,%d): %s", {std::string_view("p"), 3u, 4u, std::string_view("%s%n")}),
              "p(3,4): %s%n");
    EXPECT_EQ(FormatText("100%% %lu %x %", {7u}), "100% 7 %x %");
    EXPECT_EQ(FormatText("%s%s%s", {std::string_view("once")}), "once");
    EXPECT_EQ(FormatText("%3u|%-3hu|%03I64d|%+zu|%2llu", {1u, 2u, 3u, 4u, 555u}), "  1|2  |003|4|555");
    const std::string_view word = "word";
    EXPECT_EQ(FormatText("%-6s|%6ls|%.2hs|%06.1s|%S", {word, word, word, word, word}),
              "word  |  word|wo|     w|word");
    EXPECT_EQ(FormatText("%99999999999u", {7u}).size(), 255U);
    EXPECT_EQ(FormatText("%-5k %3% %", {7u}), "%-5k %3% %") << "no argument is theirs";
}

TEST(LoadText, HasEveryTextAndNoOther)
{
    EXPECT_EQ(LoadText(1023), "\"Unable to read file \"\"%s\"\" for the following reason:\n%s\"");
    EXPECT_EQ(LoadText(1028),
              "No dielectric material found. Consider copying default library DefaultMaterialD.mat "
              "into executable folder.");
    EXPECT_EQ(LoadText(1024), "Library should contain materials of the same type, Dielectric or Metal ones.");
    EXPECT_EQ(LoadText(1), "");
    EXPECT_EQ(LoadText(12199), "");
}
} // namespace
