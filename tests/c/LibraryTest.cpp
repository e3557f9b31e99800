#include "model/CFakeMaterialLib.h"
#include "reader/LoadMaterialFile.h"
#include "tests/CollectedMessages.h"
#include "tests/TemporaryFile.h"
#include "tests/c/OpenedLibrary.h"

#include <array>
#include <cmath>
#include <fstream>

namespace
{
const std::string header = "{MAT_FILE}{VERSION=1.0}\n";

std::string Named(const char* name)
{
    return std::string("{DIELECTRIC (NAME=\"") + name + "\")}\n";
}

TEST(OpenFiles, KeepsTheGoodOnesAndSaysWhatIsWrongWithTheOthers)
{
    const TemporaryFile good("good.mat", header + Named("first") + Named("second"));
    const TemporaryFile broken("broken.mat", header + Named("lost") + "\n  {DIELECTRIC (NAME = unquoted)}");
    const TemporaryFile empty("empty.mat", "");
    const TemporaryFile last("last.mat", header + Named("last"));
    const std::vector<std::string> paths{good.GetPath(), broken.GetPath(), good.GetPath() + ".none",
                                         empty.GetPath(), last.GetPath()};

    const OpenedLibrary library = OpenPaths(paths, ML_OPEN_DEFAULT);
    EXPECT_EQ(ml_count_materials(library.get()), 3u);
    EXPECT_EQ(ml_find(library.get(), "lost"), nullptr);
    EXPECT_EQ(ml_find(library.get(), "last"), ml_get_material(library.get(), 2));
    ASSERT_EQ(ml_count_diagnostics(library.get()), 3u);
    for (std::size_t i = 0; i < 3; ++i)
    {
        auto found = Sized<ml_diagnostic>();
        ASSERT_EQ(ml_get_diagnostic(library.get(), i, &found), ML_OK);
        EXPECT_EQ(found.file, paths[i + 1]);
        // Place and reason are those of the message that a host shows.
        CollectedMessages messages;
        CFakeMaterialLib shown;
        EXPECT_FALSE(LoadMaterialFile(shown, paths[i + 1].c_str()));
        const std::string place =
            ", line " + std::to_string(found.line) + ", column " + std::to_string(found.column) + ": ";
        ASSERT_EQ(messages.boxes.size(), 1u);
        EXPECT_TRUE(messages.boxes[0].text.ends_with(found.reason)) << messages.boxes[0].text;
        EXPECT_EQ(messages.boxes[0].text.find(place) != std::string::npos, found.line != 0);
        EXPECT_EQ(found.line, (std::array{4u, 0u, 1u}[i]));
        EXPECT_EQ(found.column == 0, i > 0);
    }

    const OpenedLibrary strict = OpenPaths(paths, ML_OPEN_ERROR_EMPTIES);
    EXPECT_EQ(ml_count_materials(strict.get()), 1u);
    EXPECT_EQ(ml_find(strict.get(), "first"), nullptr);
    EXPECT_NE(ml_find(strict.get(), "last"), nullptr);
    EXPECT_EQ(ml_count_diagnostics(strict.get()), 3u);
}

TEST(OpenFiles, TakesPathsInUtf8)
{
    const TemporaryFile plain("plain.mat", "");
    const std::u8string name = u8"Leiterplatten \u4e2d\u6587 \u00b5m.mat";
    const auto path = std::filesystem::path(plain.GetPath()).parent_path() / std::filesystem::path(name);
    std::ofstream(path) << header << Named("found");
    const std::u8string text = path.u8string();
    const OpenedLibrary library = OpenPaths({{text.begin(), text.end()}}, ML_OPEN_DEFAULT);
    EXPECT_NE(ml_find(library.get(), "found"), nullptr);
    std::filesystem::remove(path);
    EXPECT_EQ(ml_count_diagnostics(OpenPaths({"\xff\xfe.mat"}, ML_OPEN_DEFAULT).get()), 1u);
}

TEST(OpenText, EndsAtANulAndKeepsNothingOfTheCallers)
{
    std::string text = header + Named("a") + Named("b");
    text[text.rfind('{') - 1] = '\0';
    ml_library* opened = nullptr;
    ASSERT_EQ(ml_open_text(text.data(), text.size(), "x", ML_OPEN_DEFAULT, &opened), ML_OK);
    const OpenedLibrary library(opened);
    std::fill(text.begin(), text.end(), 'x');
    EXPECT_EQ(ml_count_materials(library.get()), 1u);
    EXPECT_NE(ml_find(library.get(), "a"), nullptr);
}

// Two dielectrics, of which the second says little, and a metal of the same file's kind elsewhere.
const std::string twoDielectrics =
    "{DIELECTRIC (NAME=\"n\")(TYPE=\"FR4\")(TECHNOLOGY=Prepreg)(VENDOR=\"v\")(COMMENT=\"c\")(THICKNESS=2e-4)"
    "(ER TABLE= 1GHz 4 1MHz 5 1GHz 3)(LOSSTANGENT TEMPERATURE=40 VALUE=0.02)(ER)}"
    "{DIELECTRIC (NAME=\"n\")}";

TEST(Materials, SayWhatTheFileSays)
{
    const OpenedLibrary library = OpenBlocks(twoDielectrics);
    const OpenedLibrary metals = OpenBlocks("{METAL (NAME=\"Cu\")(RB=1.7e-8)(ROUGHTOP VALUE=2)}");
    auto info = Sized<ml_material_info>();
    ASSERT_EQ(ml_get_info(ml_get_material(library.get(), 0), &info), ML_OK);
    EXPECT_EQ(std::string(info.name) + info.type + info.vendor + info.comment, "nFR4vc");
    EXPECT_EQ(info.kind, ML_DIELECTRIC);
    EXPECT_EQ(info.technology, ML_PREPREG);
    EXPECT_TRUE(info.has_thickness == 1 && info.thickness == 2e-4);
    EXPECT_TRUE(info.has_resistivity == 0 && std::isnan(info.resistivity));
    EXPECT_EQ(info.table_count, 3u);

    EXPECT_EQ(ml_find(library.get(), "n"), ml_get_material(library.get(), 1)) << "the last of a name";
    ASSERT_EQ(ml_get_info(ml_find(library.get(), "n"), &info), ML_OK);
    EXPECT_EQ(std::string(info.type) + info.vendor + info.comment, "");
    EXPECT_EQ(info.technology, ML_TECHNOLOGY_UNKNOWN);
    EXPECT_TRUE(info.has_thickness == 0 && std::isnan(info.thickness) && info.table_count == 0);
    ASSERT_EQ(ml_get_info(ml_find(metals.get(), "Cu"), &info), ML_OK);
    EXPECT_TRUE(info.kind == ML_METAL && info.has_resistivity == 1 && info.resistivity == 1.7e-8);

    auto table = Sized<ml_table>();
    ASSERT_EQ(ml_get_table(ml_get_material(library.get(), 0), 0, &table), ML_OK);
    EXPECT_TRUE(table.property == ML_ER && table.temperature == 25.0 && table.row_count == 3);
    EXPECT_TRUE(table.rows[2].frequency == 1e9 && table.rows[2].value == 3.0);
    ASSERT_EQ(ml_get_table(ml_get_material(library.get(), 0), 1, &table), ML_OK);
    EXPECT_TRUE(table.property == ML_LOSS_TANGENT && table.temperature == 40.0 && table.row_count == 1);
    ASSERT_EQ(ml_get_table(ml_get_material(library.get(), 0), 2, &table), ML_OK);
    EXPECT_TRUE(table.rows == nullptr && table.row_count == 0);
}

TEST(Materials, PassAFilterThatTheyFit)
{
    const OpenedLibrary library = OpenBlocks(twoDielectrics);
    using Places = std::vector<std::size_t>; // behind those that pass
    const auto pass = [&library](auto narrow)
    {
        auto filter = Sized<ml_filter>();
        EXPECT_EQ(ml_filter_all(&filter), ML_OK);
        narrow(filter);
        Places places;
        std::size_t index = 0;
        while (const ml_material* const material = ml_next(library.get(), &filter, &index))
        {
            EXPECT_EQ(material, ml_get_material(library.get(), index - 1));
            places.push_back(index);
        }
        EXPECT_EQ(index, 2u);
        return places;
    };
    EXPECT_EQ(pass([](ml_filter&) {}), (Places{1, 2}));
    EXPECT_EQ(pass([](ml_filter& filter) { filter.kind = ML_METAL; }), Places{});
    EXPECT_EQ(pass([](ml_filter& filter) { filter.technology = ML_TECHNOLOGY_UNKNOWN; }), Places{2});
    EXPECT_EQ(pass([](ml_filter& filter) { filter.type = "FR4"; }), Places{1});
    EXPECT_EQ(pass([](ml_filter& filter) { filter.vendor = ""; }), Places{2});
    EXPECT_EQ(pass([](ml_filter& filter) { filter.thickness_min = 2e-4; }), Places{1});
    EXPECT_EQ(pass([](ml_filter& filter) { filter.thickness_max = 2e-4; }), Places{1});
    EXPECT_EQ(pass([](ml_filter& filter) { filter.thickness_max = 1e-4; }), Places{});
}

TEST(Versions, OfStructsDifferInSize)
{
    struct Newer
    {
        ml_diagnostic known;
        int unknown = 77;
    };
    const OpenedLibrary library = OpenPaths({"no such file"}, ML_OPEN_DEFAULT);
    Newer newer{};
    newer.known.struct_size = sizeof newer;
    EXPECT_EQ(ml_get_diagnostic(library.get(), 0, &newer.known), ML_OK);
    EXPECT_TRUE(newer.known.struct_size == sizeof newer && newer.known.reason != nullptr &&
                newer.unknown == 77);
    newer.known.file = nullptr;
    newer.known.struct_size = sizeof newer.known - 1;
    EXPECT_EQ(ml_get_diagnostic(library.get(), 0, &newer.known), ML_ERROR_ARGUMENT);
    EXPECT_EQ(newer.known.file, nullptr);
    auto filter = Sized<ml_filter>();
    ASSERT_EQ(ml_filter_all(&filter), ML_OK);
    filter.struct_size = 8;
    std::size_t index = 0;
    EXPECT_EQ(ml_next(OpenBlocks(twoDielectrics).get(), &filter, &index), nullptr);
}

TEST(Arguments, ThatAreWrongAreErrors)
{
    const OpenedLibrary library = OpenBlocks(twoDielectrics);
    const ml_material* const material = ml_get_material(library.get(), 0);
    const char* const nothing = nullptr;
    ml_library* opened = nullptr;
    ml_model* model = nullptr;
    double number = 7.0;
    ml_term term{1.0, 2.0, 1.0};
    auto table = Sized<ml_table>();
    auto info = Sized<ml_material_info>();
    auto diagnostic = Sized<ml_diagnostic>();
    ml_filter filter = Sized<ml_filter>();
    std::size_t index = 0;
    const ml_error errors[] = {ml_open_files(nullptr, 1, 0, &opened),
                               ml_open_files(&nothing, 1, 0, &opened),
                               ml_open_files(nullptr, 0, 2, &opened),
                               ml_open_text("", 0, nullptr, 0, &opened),
                               ml_open_text(nullptr, 1, "", 0, &opened),
                               ml_open_text("", 0, "", 0, nullptr),
                               ml_get_diagnostic(library.get(), 0, &diagnostic),
                               ml_get_info(nullptr, &info),
                               ml_get_info(material, nullptr),
                               ml_filter_all(nullptr),
                               ml_get_table(nullptr, 0, &table),
                               ml_get_table(material, 3, &table),
                               ml_values(nullptr, ML_ER, 25, 0, &number, 1, &number, nullptr),
                               ml_values(material, -1, 25, 0, &number, 1, &number, nullptr),
                               ml_values(material, 4, 25, 0, &number, 1, &number, nullptr),
                               ml_values(material, ML_ER, 25, 4, &number, 1, &number, nullptr),
                               ml_values(material, ML_ER, 25, 0, nullptr, 1, &number, nullptr),
                               ml_values(material, ML_ER, 25, 0, &number, 1, nullptr, nullptr),
                               ml_make_model(nullptr, 25, &model),
                               ml_make_model_from_terms(NAN, &term, 1, &model),
                               ml_make_model_from_terms(1, nullptr, 1, &model),
                               ml_get_model_info(nullptr, nullptr),
                               ml_get_term(nullptr, 0, &term),
                               ml_get_residual(nullptr, 0, nullptr),
                               ml_permittivity(nullptr, &number, 1, &number, nullptr),
                               ml_debye_poles(nullptr, 1, 1, 2, nullptr, 0, &index, nullptr)};
    for (const ml_error& error : errors)
    {
        EXPECT_EQ(error, ML_ERROR_ARGUMENT) << &error - errors;
    }
    EXPECT_TRUE(opened == nullptr && model == nullptr && number == 7.0);
    for (const ml_term& wrong : {ml_term{0, 1, 1}, {2, 2, 1}, {1, INFINITY, 1}, {1, 2, NAN}, {NAN, 2, 1}})
    {
        EXPECT_EQ(ml_make_model_from_terms(1, &wrong, 1, &model), ML_ERROR_ARGUMENT);
    }
    EXPECT_EQ(ml_count_materials(nullptr) + ml_count_diagnostics(nullptr), 0u);
    EXPECT_EQ(ml_get_material(nullptr, 0), nullptr);
    EXPECT_EQ(ml_get_material(library.get(), 2), nullptr);
    for (const char* const name : {nothing, "", "N"})
    {
        EXPECT_EQ(ml_find(library.get(), name), nullptr);
    }
    EXPECT_EQ(ml_next(library.get(), &filter, nullptr), nullptr);
    EXPECT_EQ(ml_next(library.get(), nullptr, &index), nullptr);
    EXPECT_EQ(ml_next(nullptr, &filter, &index), nullptr);
    ml_close(nullptr);
    ml_free_model(nullptr);
    for (const ml_error error : {ML_OK + 0, ML_ERROR_INTERNAL + 0, 99, -1})
    {
        EXPECT_STRNE(ml_error_text(error), "");
    }
}
} // namespace
