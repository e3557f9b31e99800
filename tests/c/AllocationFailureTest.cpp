// Fails the n-th allocation, for every n, while a library is opened and asked.
#include "tests/FailingMemory.h"
#include "tests/TemporaryFile.h"
#include "tests/c/OpenedLibrary.h"

namespace
{
const std::string header = "{MAT_FILE}{VERSION=1.0}\n";
const std::string laminate =
    "{DIELECTRIC (NAME=\"a name longer than a short string\")(ER TEMPERATURE=20 TABLE=1MHz 4.6 1GHz 4.3)"
    "(ER TEMPERATURE=60 TABLE=1MHz 4.8 1GHz 4.5)(LOSSTANGENT TABLE=1MHz 0.015 100MHz 0.018 1GHz 0.019)}";

// Throws what the error stands for, so that the caller sees the failure.
void Need(ml_error error)
{
    if (error == ML_ERROR_MEMORY)
    {
        throw std::bad_alloc();
    }
    EXPECT_EQ(error, ML_OK);
}

TEST(AllocationFailure, IsAnErrorOfOpening)
{
    const TemporaryFile good("good.mat", header + laminate);
    const TemporaryFile broken("broken.mat", header + "{DIELECTRIC (NAME = unquoted)}");
    const char* const paths[] = {good.GetPath().c_str(), broken.GetPath().c_str(), "no such file"};
    const int allocations = FailEveryAllocation(
        [&paths]
        {
            ml_library* library = nullptr;
            const ml_error error = ml_open_files(paths, 3, ML_OPEN_DEFAULT, &library);
            EXPECT_EQ(library != nullptr, error == ML_OK);
            const OpenedLibrary opened(library);
            Need(error);
        });
    EXPECT_GT(allocations, 15);
}

TEST(AllocationFailure, IsAnErrorOfAsking)
{
    const OpenedLibrary library = OpenBlocks(laminate);
    const int allocations = FailEveryAllocation(
        [&library]
        {
            const ml_material* const material = ml_get_material(library.get(), 0);
            const double frequencies[] = {1e6, 2e9};
            double values[] = {-1.0, -1.0};
            const ml_error error = ml_values(material, ML_ER, 60, 0, frequencies, 2, values, nullptr);
            EXPECT_EQ(values[0] == 4.8 && values[1] > 4.0, error == ML_OK);
            EXPECT_EQ(values[0] == -1.0 && values[1] == -1.0, error != ML_OK) << "left as they were";
            Need(error);
            ml_model* made = nullptr;
            Need(ml_make_model(material, 20, &made));
            const OwnedModel model(made);
            std::size_t count = 0;
            Need(ml_debye_poles(made, 3, 1e6, 1e9, nullptr, 0, &count, nullptr));
            const ml_term term{1e6, 1e9, 0.5};
            made = nullptr;
            const ml_error from_terms = ml_make_model_from_terms(4.0, &term, 1, &made);
            const OwnedModel other(made);
            Need(from_terms);
        });
    EXPECT_GT(allocations, 15);
}

TEST(AllocationFailure, IsAnErrorOfMakingAndWriting)
{
    const TemporaryFile file("made.mat", "old");
    const auto folder = std::filesystem::path(file.GetPath()).parent_path();
    const int allocations = FailEveryAllocation(
        [&]
        {
            ml_builder* made = nullptr;
            const ml_error making = ml_make_builder(&made);
            const std::unique_ptr<ml_builder, decltype(&ml_free_builder)> builder(made, ml_free_builder);
            Need(making);
            auto info = Sized<ml_material_info>();
            info.name = "a name longer than a short string";
            const ml_row rows[] = {{1e9, 4.2}, {2e9, 4.1}};
            const ml_table table{sizeof table, ML_ER, 25.0, rows, 2};
            Need(ml_add_material(made, &info));
            Need(ml_add_table(made, &table));
            ml_library* built = nullptr;
            const ml_error building = ml_build(made, &built, nullptr, 0);
            const OpenedLibrary library(built);
            Need(building);
            const ml_material* const material = ml_get_material(built, 0);
            Need(ml_write_file(file.GetPath().c_str(), &material, 1, ML_WRITE_REPLACE, nullptr, 0));
        });
    EXPECT_GT(allocations, 40);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder), {}), 1);
}
} // namespace
