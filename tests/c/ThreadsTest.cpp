// Eight threads that ask everything of one library at a time, and open and close others meanwhile. A build
// with ThreadSanitizer (preset "thread") sees what they would do to each other.
#include "tests/c/OpenedLibrary.h"

#include <algorithm>
#include <cmath>
#include <thread>

namespace
{
// Every value, status and pole that the materials give.
std::vector<double> AskEverything(const ml_library* library)
{
    const double frequencies[] = {1e5, 1e6, 2.5e9, 1e10, 1e12};
    std::vector<double> answers;
    auto filter = Sized<ml_filter>();
    EXPECT_EQ(ml_filter_all(&filter), ML_OK);
    std::size_t index = 0;
    while (const ml_material* const material = ml_next(library, &filter, &index))
    {
        auto info = Sized<ml_material_info>();
        auto table = Sized<ml_table>();
        EXPECT_TRUE(ml_get_info(material, &info) == ML_OK && ml_get_table(material, 0, &table) == ML_OK);
        EXPECT_NE(ml_find(library, info.name), nullptr);
        for (int question = 0; question < 16; ++question) // a property, a temperature and both flags or none
        {
            double values[5];
            std::uint8_t status[5];
            const std::uint32_t flags = question / 4 % 2 == 0 ? 0 : 3;
            EXPECT_EQ(ml_values(material, question % 4, question / 8 * 30.0 + 25.0, flags, frequencies, 5,
                                values, status),
                      ML_OK);
            answers.insert(answers.end(), values, values + 5);
            answers.insert(answers.end(), status, status + 5);
        }
        ml_model* made = nullptr;
        if (ml_make_model(material, 25.0, &made) == ML_OK)
        {
            const OwnedModel model(made);
            std::size_t count = 0;
            EXPECT_EQ(ml_debye_poles(made, 2, 1e6, 1e10, nullptr, 0, &count, &answers.emplace_back()), ML_OK);
        }
    }
    std::replace_if(
        answers.begin(), answers.end(), [](double answer) { return std::isnan(answer); }, -77.0);
    return answers;
}

TEST(Threads, MayAskOneLibraryAtATime)
{
    constexpr int threadCount = 8;
    const std::string laminates = ML_SOURCE_DIR "/examples/materials/DefaultMaterialD.mat";
    const std::string foils = ML_SOURCE_DIR "/examples/materials/DefaultMaterialM.mat";
    const OpenedLibrary library = OpenPaths({laminates, foils, "no such file"}, ML_OPEN_DEFAULT);
    ASSERT_GT(ml_count_materials(library.get()), 50u);
    std::vector<std::vector<double>> answers(threadCount);
    std::vector<std::thread> threads;
    for (std::vector<double>& answer : answers)
    {
        threads.emplace_back(
            [&answer, &library, &foils]
            {
                const OpenedLibrary own = OpenPaths({foils, "no such file"}, ML_OPEN_DEFAULT);
                answer = AskEverything(library.get());
            });
    }
    for (std::thread& thread : threads)
    {
        thread.join();
    }
    EXPECT_EQ(answers, std::vector(threadCount, AskEverything(library.get())));
}
} // namespace
