// Eight threads that ask everything of one library at a time, and open and close others meanwhile. A build
// with ThreadSanitizer (preset "thread") sees what they would do to each other.
#include "tests/c/OpenedLibrary.h"

#include <cstring>
#include <functional>
#include <thread>

namespace
{
const std::string path = ML_SOURCE_DIR "/examples/materials/DefaultMaterialD.mat";
const std::string foils = ML_SOURCE_DIR "/examples/materials/DefaultMaterialM.mat";

// Adds the bytes of what was answered to a fingerprint.
class CFingerprint
{
public:
    template <class Value>
    void Add(const Value& value)
    {
        char bytes[sizeof value];
        std::memcpy(bytes, &value, sizeof value);
        hash = hash * 31 + std::hash<std::string_view>()({bytes, sizeof bytes});
    }
    void Add(const char* text) { hash = hash * 31 + std::hash<std::string_view>()(text); }

    std::size_t hash = 0;
};

void AskForValues(const ml_material* material, CFingerprint& answers)
{
    const double frequencies[] = {1e5, 1e6, 2.5e9, 1e10, 1e12};
    for (const int property : {ML_ER, ML_LOSS_TANGENT, ML_ROUGHNESS_TOP, ML_ROUGHNESS_BOTTOM})
    {
        for (const double temperature : {25.0, 60.0})
        {
            for (const int flags : {0, ML_MODEL_EVERYWHERE | ML_STRAIGHT_ROUGHNESS})
            {
                double values[5];
                std::uint8_t status[5];
                EXPECT_EQ(ml_values(material, property, temperature, static_cast<std::uint32_t>(flags),
                                    frequencies, 5, values, status),
                          ML_OK);
                answers.Add(values);
                answers.Add(status);
            }
        }
    }
}

void AskForModel(const ml_material* material, CFingerprint& answers)
{
    ml_model* made = nullptr;
    if (ml_make_model(material, 25.0, &made) != ML_OK)
    {
        return;
    }
    const OwnedModel model(made);
    std::size_t count = 0;
    double worst = 0.0;
    EXPECT_EQ(ml_debye_poles(made, 2, 1e6, 1e10, nullptr, 0, &count, &worst), ML_OK);
    ml_residual residual{};
    EXPECT_EQ(ml_get_residual(made, 0, &residual), ML_OK);
    answers.Add(worst);
    answers.Add(residual.residual);
}

std::size_t AskEverything(const ml_library* library)
{
    CFingerprint answers;
    auto filter = Sized<ml_filter>();
    EXPECT_EQ(ml_filter_all(&filter), ML_OK);
    std::size_t index = 0;
    while (const ml_material* const material = ml_next(library, &filter, &index))
    {
        auto info = Sized<ml_material_info>();
        auto table = Sized<ml_table>();
        EXPECT_EQ(ml_get_info(material, &info), ML_OK);
        EXPECT_EQ(ml_get_table(material, 0, &table), ML_OK);
        EXPECT_NE(ml_find(library, info.name), nullptr);
        answers.Add(info.name);
        answers.Add(table.rows[0].value);
        AskForValues(material, answers);
        AskForModel(material, answers);
    }
    return answers.hash;
}

TEST(Threads, MayAskOneLibraryAtATime)
{
    constexpr int threadCount = 8;
    const OpenedLibrary library = OpenPaths({path, foils, "no such file"}, ML_OPEN_DEFAULT);
    ASSERT_GT(ml_count_materials(library.get()), 50u);
    std::vector<std::size_t> answers(threadCount);
    std::vector<std::thread> threads;
    for (std::size_t& answer : answers)
    {
        threads.emplace_back(
            [&answer, &library]
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
