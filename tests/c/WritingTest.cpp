#include "tests/TemporaryFile.h"
#include "tests/c/OpenedLibrary.h"

#include <array>
#include <cmath>
#include <limits>

namespace
{
const std::string header = "{MAT_FILE}{VERSION=1.0}\n";

struct FreeBuilder
{
    void operator()(ml_builder* builder) const { ml_free_builder(builder); }
};
using OwnedBuilder = std::unique_ptr<ml_builder, FreeBuilder>;

OwnedBuilder MakeBuilder()
{
    ml_builder* builder = nullptr;
    EXPECT_EQ(ml_make_builder(&builder), ML_OK);
    return OwnedBuilder(builder);
}

ml_error AddTable(const OwnedBuilder& builder, std::int32_t property, double temperature,
                  const std::vector<ml_row>& rows)
{
    const ml_table table{sizeof table, property, temperature, rows.data(), rows.size()};
    return ml_add_table(builder.get(), &table);
}

ml_material_info Describe(const char* name)
{
    auto info = Sized<ml_material_info>();
    info.name = name;
    info.technology = ML_TECHNOLOGY_UNKNOWN;
    return info;
}

// Two laminates, the second without anything.
OwnedBuilder MakeLaminates()
{
    OwnedBuilder builder = MakeBuilder();
    ml_material_info info = Describe("Core A");
    info.technology = ML_PREPREG;
    info.has_thickness = 1;
    info.thickness = 0.1 + 0.2;
    EXPECT_EQ(ml_add_material(builder.get(), &info), ML_OK);
    EXPECT_EQ(AddTable(builder, ML_ER, 25.0, {{1e8, 4.3}, {1e9, 4.2}, {1e10, 4.1}}), ML_OK);
    EXPECT_EQ(AddTable(builder, ML_LOSS_TANGENT, 25.0, {{1e8, 0.018}, {1e9, 0.02}, {1e10, 0.021}}), ML_OK);
    const ml_material_info empty = Describe(nullptr);
    EXPECT_EQ(ml_add_material(builder.get(), &empty), ML_OK);
    return builder;
}

OpenedLibrary Build(const OwnedBuilder& builder)
{
    ml_library* library = nullptr;
    EXPECT_EQ(ml_build(builder.get(), &library, nullptr, 0), ML_OK);
    return OpenedLibrary(library);
}

void ExpectLaminates(const ml_library* library)
{
    ASSERT_EQ(ml_count_materials(library), 2u);
    const ml_material* const core = ml_find(library, "Core A");
    auto info = Sized<ml_material_info>();
    ASSERT_EQ(ml_get_info(core, &info), ML_OK);
    EXPECT_EQ(info.technology, ML_PREPREG);
    EXPECT_EQ(info.thickness, 0.1 + 0.2);
    EXPECT_EQ(info.table_count, 2u);
    const double frequencies[] = {1e9, 3e9};
    double values[2] = {};
    ASSERT_EQ(ml_values(core, ML_ER, 25.0, ML_AS_MEASURED, frequencies, 2, values, nullptr), ML_OK);
    EXPECT_EQ(values[0], 4.2);
    EXPECT_NEAR(values[1], 4.15, 0.02); // the model's
    ASSERT_EQ(ml_get_info(ml_get_material(library, 1), &info), ML_OK);
    EXPECT_STREQ(info.name, "");
    EXPECT_TRUE(std::isnan(info.thickness));
}

TEST(Builder, MakesWhatAnswersLikeAFile)
{
    OwnedBuilder builder = MakeLaminates();
    const OpenedLibrary first = Build(builder);
    const ml_material_info more = Describe("more");
    ASSERT_EQ(ml_add_material(builder.get(), &more), ML_OK);
    EXPECT_EQ(ml_count_materials(Build(builder).get()), 3u);
    builder.reset();
    ExpectLaminates(first.get());
    EXPECT_EQ(ml_count_materials(Build(MakeBuilder()).get()), 0u);
}

TEST(Builder, MakesMetals)
{
    const OwnedBuilder builder = MakeBuilder();
    ml_material_info foil = Describe("Foil");
    foil.kind = ML_METAL;
    foil.has_resistivity = 1;
    foil.resistivity = 1.7e-8;
    ASSERT_EQ(ml_add_material(builder.get(), &foil), ML_OK);
    ASSERT_EQ(AddTable(builder, ML_ROUGHNESS_TOP, 25.0, {{1e9, 1.1}}), ML_OK);
    const OpenedLibrary built = Build(builder);
    auto info = Sized<ml_material_info>();
    ASSERT_EQ(ml_get_info(ml_find(built.get(), "Foil"), &info), ML_OK);
    EXPECT_TRUE(info.kind == ML_METAL && info.resistivity == 1.7e-8 && info.table_count == 1);
}

TEST(Builder, RefusesWhatIsNoMaterial)
{
    const OwnedBuilder builder = MakeBuilder();
    EXPECT_EQ(AddTable(builder, ML_ER, 25.0, {}), ML_ERROR_ARGUMENT) << "of which material?";
    ml_material_info info = Describe("");
    EXPECT_EQ(ml_add_material(builder.get(), nullptr), ML_ERROR_ARGUMENT);
    EXPECT_EQ(ml_add_material(nullptr, &info), ML_ERROR_ARGUMENT);
    info.kind = 2;
    EXPECT_EQ(ml_add_material(builder.get(), &info), ML_ERROR_ARGUMENT);
    info.kind = ML_DIELECTRIC;
    info.technology = 3;
    EXPECT_EQ(ml_add_material(builder.get(), &info), ML_ERROR_ARGUMENT);
    info.technology = ML_CORE;
    info.struct_size -= 1;
    EXPECT_EQ(ml_add_material(builder.get(), &info), ML_ERROR_ARGUMENT);
    info.struct_size += 1;
    ASSERT_EQ(ml_add_material(builder.get(), &info), ML_OK);
    EXPECT_EQ(AddTable(builder, 4, 25.0, {}), ML_ERROR_ARGUMENT);
    const ml_table rowless{sizeof rowless, ML_ER, 25.0, nullptr, 1};
    EXPECT_EQ(ml_add_table(builder.get(), &rowless), ML_ERROR_ARGUMENT);

    ASSERT_EQ(AddTable(builder, ML_ER, 25.0, {{1e9, std::numeric_limits<double>::quiet_NaN()}}), ML_OK);
    ml_library* library = nullptr;
    std::array<char, 16> reason{};
    EXPECT_EQ(ml_build(builder.get(), &library, reason.data(), reason.size()), ML_ERROR_UNWRITABLE);
    EXPECT_EQ(library, nullptr);
    EXPECT_STREQ(reason.data(), "Material 0: ER ") << "cut";
    EXPECT_EQ(ml_build(builder.get(), &library, nullptr, 1), ML_ERROR_ARGUMENT);
    EXPECT_EQ(ml_build(nullptr, &library, nullptr, 0), ML_ERROR_ARGUMENT);
}

TEST(WriteFile, WritesWhatIsLoadedAgain)
{
    const TemporaryFile file("made.mat", "old");
    const char* const path = file.GetPath().c_str();
    const OpenedLibrary built = Build(MakeLaminates());
    const OpenedLibrary loaded = OpenBlocks("{METAL (NAME=\"Foil\")(RB=1.7e-8)(ROUGHTOP TABLE=3GHz 1.1)}");
    const ml_material* const laminates[] = {ml_get_material(built.get(), 0), ml_get_material(built.get(), 1)};
    std::array<char, 200> reason{};
    EXPECT_EQ(ml_write_file(path, laminates, 2, ML_WRITE_NEW, reason.data(), reason.size()), ML_ERROR_EXISTS);
    EXPECT_STRNE(reason.data(), "");
    ASSERT_EQ(ml_write_file(path, laminates, 2, ML_WRITE_REPLACE, nullptr, 0), ML_OK);
    ExpectLaminates(OpenPaths({path}, ML_OPEN_DEFAULT).get());

    const ml_material* const mixed[] = {laminates[0], ml_get_material(loaded.get(), 0)};
    EXPECT_EQ(ml_write_file(path, mixed, 2, ML_WRITE_REPLACE, reason.data(), reason.size()),
              ML_ERROR_UNWRITABLE);
    EXPECT_STREQ(reason.data(), "Material 1: a file holds either dielectrics or metals, never both.");
    ASSERT_EQ(ml_write_file(path, mixed + 1, 1, ML_WRITE_REPLACE, nullptr, 0), ML_OK);
    EXPECT_NE(ml_find(OpenPaths({path}, ML_OPEN_DEFAULT).get(), "Foil"), nullptr);

    const std::string nowhere = file.GetPath() + "/none";
    EXPECT_EQ(ml_write_file(nowhere.c_str(), laminates, 2, ML_WRITE_NEW, reason.data(), reason.size()),
              ML_ERROR_WRITE);
    const ml_material* const none[] = {nullptr};
    EXPECT_EQ(ml_write_file(path, none, 1, ML_WRITE_REPLACE, nullptr, 0), ML_ERROR_ARGUMENT);
    EXPECT_EQ(ml_write_file(nullptr, laminates, 2, ML_WRITE_NEW, nullptr, 0), ML_ERROR_ARGUMENT);
    EXPECT_EQ(ml_write_file(path, laminates, 2, 2, nullptr, 0), ML_ERROR_ARGUMENT);
}
} // namespace
