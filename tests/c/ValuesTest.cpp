#include "model/CFakeMaterialLib.h"
#include "model/CMaterial.h"
#include "reader/LoadMaterialFile.h"
#include "tests/c/OpenedLibrary.h"

#include <array>
#include <bit>
#include <cmath>
#include <complex>
#include <cstdint>
#include <limits>
#include <random>
#include <span>

namespace
{
constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double untouched = -77.0;

// Materials as no laboratory would send them: tables for several temperatures, rows in disorder, repeated,
// below 10 kHz, constants, empty tables.
class CRandomMaterials
{
public:
    explicit CRandomMaterials(unsigned seed) : random(seed) {}

    [[nodiscard]] unsigned Pick(unsigned below) { return static_cast<unsigned>(random() % below); }

    [[nodiscard]] std::string MakeBlock(bool isMetal)
    {
        std::string text = isMetal ? "{METAL " : "{DIELECTRIC ";
        const char* const keys[] = {isMetal ? "ROUGHTOP" : "ER", isMetal ? "ROUGHBTM" : "LOSSTANGENT"};
        const char* const temperatures[] = {"20", "25", "25.05", "40"};
        for (unsigned table = Pick(5); table > 0; --table)
        {
            const unsigned which = Pick(2);
            text += std::string("(") + keys[which] + " TEMPERATURE=" + temperatures[Pick(4)];
            text += Pick(6) == 0 ? " VALUE=" + Value(which) : Rows(which);
            text += ")";
        }
        return text + "}";
    }

private:
    [[nodiscard]] std::string Value(unsigned which)
    {
        return which == 0 ? std::to_string(3.5 + 0.01 * Pick(200)) : "0.0" + std::to_string(10 + Pick(30));
    }

    [[nodiscard]] std::string Rows(unsigned which)
    {
        const char* const frequencies[] = {"0",      "1kHz",   "10kHz",  "1MHz", "10MHz",
                                           "100MHz", "100MHz", "1.5GHz", "1GHz", "10GHz"};
        std::string text = " TABLE=";
        const bool ascending = Pick(4) != 0;
        for (unsigned at = 0; at < std::size(frequencies); at += 1 + Pick(4))
        {
            const unsigned row = ascending ? at + (Pick(3) != 0 && at < 3 ? 3 - at : 0) : Pick(10);
            text += std::string(" ") + frequencies[row] + " " + Value(which);
        }
        return text;
    }

    std::mt19937 random;
};

// What a library that was read a moment ago answers to one question.
double AskFreshly(const std::string& text, int property, double temperature, double frequency)
{
    CFakeMaterialLib library;
    EXPECT_FALSE(ReadMaterials(library, PadText(text).c_str()));
    double value = untouched;
    library.GetMaterial(0)->GetValue(property, frequency, &value, temperature);
    return value;
}

TEST(Values, AreThoseOfALibraryThatIsAskedOnce)
{
    CRandomMaterials random(20260101);
    const std::vector<double> frequencies{1e9,       2.5e9, 1e8, 1e3,   5e3,  77e9,  -1e9, 0.0,  infinity,
                                          -infinity, NAN,   1e4, 1.5e9, 1e11, 3.3e7, 1e9,  1e-9, 1e300};
    constexpr double temperatures[] = {25.0, 25.09, 20.0, 30.0, 60.0, -10.0, NAN, infinity};
    int counts[16]{};
    for (int i = 0; i < 120; ++i)
    {
        const bool isMetal = random.Pick(4) == 0;
        const std::string block = random.MakeBlock(isMetal);
        const OpenedLibrary library = OpenBlocks(block);
        const double temperature = temperatures[random.Pick(8)];
        for (const int property : {0, 1, 2, 3})
        {
            std::vector<double> values(frequencies.size());
            std::vector<std::uint8_t> status(frequencies.size());
            ASSERT_EQ(ml_values(ml_get_material(library.get(), 0), property, temperature, ML_AS_MEASURED,
                                frequencies.data(), frequencies.size(), values.data(), status.data()),
                      ML_OK);
            for (std::size_t k = 0; k < frequencies.size(); ++k)
            {
                const double single =
                    AskFreshly("{MAT_FILE}{VERSION=1.0}" + block, property, temperature, frequencies[k]);
                const int source = status[k] & ML_STATUS_SOURCE;
                ++counts[source];
                const bool same = source == ML_NO_DATA ? std::isnan(values[k]) && single == untouched
                                                       : std::bit_cast<std::uint64_t>(values[k]) ==
                                                             std::bit_cast<std::uint64_t>(single);
                ASSERT_TRUE(same) << block << " property " << property << " at " << frequencies[k] << " Hz, "
                                  << temperature << " C: " << values[k] << " for " << single;
                EXPECT_EQ(source == ML_NO_FIT, single == -1.0) << block;
            }
        }
    }
    for (int source = ML_FROM_ROW; source <= ML_NO_DATA; ++source)
    {
        EXPECT_GT(counts[source], 20) << source;
    }
}

const std::string materials =
    "{DIELECTRIC (NAME=\"table\")(ER TEMPERATURE=20 TABLE=1MHz 4.6 1GHz 4.3 10GHz 4.2)"
    "(LOSSTANGENT TEMPERATURE=20 TABLE=1kHz 0.01 1MHz 0.015 1GHz 0.019 10GHz 0.02)"
    "(ER TEMPERATURE=40 TABLE=1MHz 4.8 1GHz 4.5)}"
    "{DIELECTRIC (NAME=\"constant\")(ER TEMPERATURE=20 VALUE=4)(ER TEMPERATURE=40 VALUE=5)"
    "(LOSSTANGENT TEMPERATURE=20 VALUE=0.02)}"
    "{DIELECTRIC (NAME=\"mixed\")(ER VALUE=4)(LOSSTANGENT TABLE=1MHz 0.01 1GHz 0.02)}"
    "{DIELECTRIC (NAME=\"no fit\")(ER VALUE=4)(LOSSTANGENT TABLE=1kHz 0.01 1GHz 0.02)}"
    "{DIELECTRIC (NAME=\"no loss\")(ER TABLE=1GHz 4 2GHz 3.9)}";

TEST(Values, SayHowTheyCameAbout)
{
    const OpenedLibrary library = OpenBlocks(materials);
    const OpenedLibrary metal =
        OpenBlocks("{METAL (NAME=\"foil\")(ROUGHTOP TABLE=1GHz 10 3GHz 30)(ROUGHBTM VALUE=2)}");
    constexpr double any = -99.0; // the value is compared elsewhere
    const struct
    {
        const char* name;
        int property;
        double temperature;
        unsigned flags;
        double frequency, value;
        int status;
    } rows[] = {
        {"table", ML_ER, 20.09, 0, 1e9, 4.3, ML_FROM_ROW},
        {"table", ML_ER, 20, ML_MODEL_EVERYWHERE, 1e9, any, ML_FROM_MODEL},
        {"table", ML_ER, 20, 0, 1e6 - 1, any, ML_FROM_MODEL_BELOW},
        {"table", ML_LOSS_TANGENT, 20, 0, 1e3, 0.01, ML_FROM_ROW},
        {"table", ML_LOSS_TANGENT, 20, 0, 1.1e10, any, ML_FROM_MODEL_ABOVE},
        {"table", ML_LOSS_TANGENT, 20, 0, NAN, NAN, ML_FROM_MODEL_BELOW},
        {"table", ML_ER, 10, 0, 1e9, 4.3, ML_FROM_ROW | ML_TEMPERATURE_NEAREST},
        {"table", ML_ER, 40, 0, 2e9, any, ML_FROM_MODEL | ML_TEMPERATURE_NEAREST},
        {"table", ML_ER, 30, 0, 1e9, 4.7, ML_FROM_CONSTANT | ML_TEMPERATURE_BETWEEN},
        {"table", ML_ER, 30, 0, 2e9, any, ML_FROM_MODEL | ML_TEMPERATURE_BETWEEN | ML_TEMPERATURE_NEAREST},
        {"constant", ML_ER, 20, 0, 5e9, 4.0, ML_FROM_CONSTANT},
        {"constant", ML_ER, 20, ML_MODEL_EVERYWHERE, 1e9, 4.0, ML_FROM_CONSTANT},
        {"constant", ML_ER, 30, 0, 5e9, 6.0, ML_FROM_CONSTANT | ML_TEMPERATURE_BETWEEN},
        {"constant", ML_LOSS_TANGENT, 30, 0, 5e9, 0.02, ML_FROM_CONSTANT | ML_TEMPERATURE_NEAREST},
        {"mixed", ML_ER, 25, 0, 1e9, 4.0, ML_FROM_CONSTANT},
        {"mixed", ML_ER, 25, ML_MODEL_EVERYWHERE, 1e9, any, ML_FROM_MODEL},
        {"no fit", ML_ER, 25, 0, 2e9, -1.0, ML_NO_FIT},
        {"no fit", ML_LOSS_TANGENT, 25, ML_MODEL_EVERYWHERE, 1e9, -1.0, ML_NO_FIT},
        {"no loss", ML_ER, 25, 0, 1e9, 4.0, ML_FROM_ROW},
        {"no loss", ML_ER, 25, ML_MODEL_EVERYWHERE, 1e9, NAN, ML_NO_DATA},
        {"no loss", ML_LOSS_TANGENT, 25, 0, 1e9, NAN, ML_NO_DATA},
        {"no loss", ML_ROUGHNESS_TOP, 25, 0, 1e9, NAN, ML_NO_DATA},
        {"foil", ML_ROUGHNESS_TOP, 99, 0, 1e9, 10.0, ML_FROM_ROW},
        {"foil", ML_ROUGHNESS_TOP, 25, 0, 2e9, 10.0, ML_BETWEEN_ROWS},
        {"foil", ML_ROUGHNESS_TOP, 25, ML_STRAIGHT_ROUGHNESS, 2e9, 20.0, ML_BETWEEN_ROWS},
        {"foil", ML_ROUGHNESS_TOP, 25, 0, 4e9, 10.0, ML_OUTSIDE_ROWS},
        {"foil", ML_ROUGHNESS_TOP, 25, ML_STRAIGHT_ROUGHNESS, 4e9, 30.0, ML_OUTSIDE_ROWS},
        {"foil", ML_ROUGHNESS_TOP, 25, ML_STRAIGHT_ROUGHNESS, -infinity, 10.0, ML_OUTSIDE_ROWS},
        {"foil", ML_ROUGHNESS_TOP, 25, ML_STRAIGHT_ROUGHNESS, NAN, NAN, ML_OUTSIDE_ROWS},
        {"foil", ML_ROUGHNESS_BOTTOM, 25, ML_STRAIGHT_ROUGHNESS, 7e9, 2.0, ML_FROM_CONSTANT},
        {"foil", ML_ER, 25, 0, 1e9, NAN, ML_NO_DATA},
    };
    for (const auto& row : rows)
    {
        const ml_material* material = ml_find(library.get(), row.name);
        material = material != nullptr ? material : ml_find(metal.get(), row.name);
        double value = untouched;
        std::uint8_t status = 0;
        ASSERT_EQ(
            ml_values(material, row.property, row.temperature, row.flags, &row.frequency, 1, &value, &status),
            ML_OK);
        EXPECT_EQ(status, row.status) << row.name << " " << &row - rows;
        if (row.value != any)
        {
            EXPECT_TRUE(std::isnan(row.value) ? std::isnan(value) : std::fabs(value - row.value) < 1e-12)
                << row.name << " " << &row - rows << ": " << value;
        }
    }
}

OwnedModel MakeModel(const ml_library* library, const char* name, double temperature)
{
    ml_model* model = nullptr;
    EXPECT_EQ(ml_make_model(ml_find(library, name), temperature, &model), ML_OK);
    return OwnedModel(model);
}

ml_model_info InfoOf(const OwnedModel& model)
{
    auto info = Sized<ml_model_info>();
    EXPECT_EQ(ml_get_model_info(model.get(), &info), ML_OK);
    return info;
}

std::vector<ml_term> TermsOf(const OwnedModel& model)
{
    std::vector<ml_term> terms(InfoOf(model).term_count);
    for (std::size_t i = 0; i < terms.size(); ++i)
    {
        EXPECT_EQ(ml_get_term(model.get(), i, &terms[i]), ML_OK);
    }
    EXPECT_EQ(ml_get_term(model.get(), terms.size(), terms.data()), ML_ERROR_ARGUMENT);
    return terms;
}

TEST(Model, IsWhatValuesComeFrom)
{
    OpenedLibrary library = OpenBlocks(materials);
    const OwnedModel model = MakeModel(library.get(), "table", 20.0);
    const ml_model_info info = InfoOf(model);
    EXPECT_TRUE(info.frequency_min == 1e6 && info.frequency_max == 1e10 && info.temperature == 0);
    EXPECT_EQ(InfoOf(MakeModel(library.get(), "table", 40.0)).temperature, ML_TEMPERATURE_NEAREST + 0u);

    const double frequencies[] = {1e5, 1e6, 3e7, 1e9, 2e11};
    double values[2][5], real[5], imaginary[5], again[5];
    for (const int property : {ML_ER, ML_LOSS_TANGENT})
    {
        ASSERT_EQ(ml_values(ml_find(library.get(), "table"), property, 20, ML_MODEL_EVERYWHERE, frequencies,
                            5, values[property], nullptr),
                  ML_OK);
    }
    library.reset(); // a model needs none
    ASSERT_EQ(ml_permittivity(model.get(), frequencies, 5, real, imaginary), ML_OK);
    const std::vector<ml_term> terms = TermsOf(model);
    ml_model* copy = nullptr;
    ASSERT_EQ(ml_make_model_from_terms(info.eps_inf, terms.data(), terms.size(), &copy), ML_OK);
    const OwnedModel made(copy);
    ASSERT_EQ(ml_permittivity(made.get(), frequencies, 5, nullptr, again), ML_OK);
    EXPECT_TRUE(InfoOf(made).frequency_max == 0.0 && InfoOf(made).residual_count == 0);
    for (std::size_t i = 0; i < 5; ++i)
    {
        EXPECT_TRUE(real[i] == values[ML_ER][i] && -imaginary[i] / real[i] == values[ML_LOSS_TANGENT][i]);
        EXPECT_EQ(again[i], imaginary[i]);
        std::complex<double> sum = info.eps_inf; // the formula of the header
        for (const ml_term& term : terms)
        {
            sum += term.delta_eps / std::log(term.f2 / term.f1) *
                   std::log(std::complex(term.f2, frequencies[i]) / std::complex(term.f1, frequencies[i]));
        }
        EXPECT_LT(std::abs(sum - std::complex(real[i], imaginary[i])), 1e-12);
    }
}

TEST(Model, SaysHowFarItPassesFromEachRow)
{
    const OpenedLibrary library = OpenBlocks(materials);
    const OwnedModel model = MakeModel(library.get(), "table", 20.0);
    ASSERT_EQ(InfoOf(model).residual_count, 3u + 4u);
    for (std::size_t i = 0; i < 7; ++i)
    {
        ml_residual residual{};
        ASSERT_EQ(ml_get_residual(model.get(), i, &residual), ML_OK);
        EXPECT_EQ(residual.property, i < 3 ? ML_ER : ML_LOSS_TANGENT);
        EXPECT_EQ(residual.is_fitted, i == 3 ? 0u : 1u) << "1 kHz is left out";
        double real = 0.0, imaginary = 0.0;
        ASSERT_EQ(ml_permittivity(model.get(), &residual.frequency, 1, &real, &imaginary), ML_OK);
        EXPECT_EQ(residual.residual, (i < 3 ? real : -imaginary / real) - residual.value);
        EXPECT_EQ(residual.value, (std::array{4.6, 4.3, 4.2, 0.01, 0.015, 0.019, 0.02}[i]));
    }
    ml_residual beyond{};
    EXPECT_EQ(ml_get_residual(model.get(), 7, &beyond), ML_ERROR_ARGUMENT);
    ml_model* none = nullptr;
    EXPECT_EQ(ml_make_model(ml_find(library.get(), "no loss"), 25, &none), ML_ERROR_NO_DATA);
    EXPECT_EQ(ml_make_model(ml_find(library.get(), "no fit"), 25, &none), ML_ERROR_NO_FIT);
    EXPECT_EQ(ml_make_model(ml_find(library.get(), "constant"), 20, &none), ML_ERROR_NO_FIT);
    EXPECT_EQ(none, nullptr);
}

// How far a sum of poles is from the model at most, at frequencies that the library did not choose.
double FindLargestError(const ml_model* model, double epsInf, std::span<const ml_pole> poles)
{
    double largest = 0.0;
    for (double frequency = 1e6; frequency < 40e9; frequency *= 1.01)
    {
        double real = 0.0, imaginary = 0.0;
        EXPECT_EQ(ml_permittivity(model, &frequency, 1, &real, &imaginary), ML_OK);
        std::complex<double> sum = epsInf;
        for (const ml_pole& pole : poles)
        {
            sum += pole.delta_eps / std::complex(1.0, frequency / pole.frequency);
        }
        largest =
            std::max(largest, std::abs(sum - std::complex(real, imaginary)) / std::hypot(real, imaginary));
    }
    return largest;
}

TEST(DebyePoles, AddUpToTheModelAsCloselyAsTheDocumentSays)
{
    const OpenedLibrary library =
        OpenPaths({ML_SOURCE_DIR "/examples/materials/DefaultMaterialD.mat"}, ML_OPEN_DEFAULT);
    const double documented[] = {3.65e-3, 4.55e-4, 5.15e-5, 5.45e-6, 5.85e-7};
    for (std::uint32_t perDecade = 1; perDecade <= 5; ++perDecade)
    {
        double worst = 0.0;
        for (std::size_t i = 0; i < ml_count_materials(library.get()); ++i)
        {
            ml_model* made = nullptr;
            ASSERT_EQ(ml_make_model(ml_get_material(library.get(), i), 25.0, &made), ML_OK);
            const OwnedModel model(made);
            std::vector<ml_pole> poles(100, ml_pole{0.0, 0.0});
            std::size_t count = 0;
            double error = 0.0;
            ASSERT_EQ(ml_debye_poles(made, perDecade, 1e6, 40e9, poles.data(), 3, &count, &error), ML_OK);
            EXPECT_TRUE(count == 7 * perDecade && poles[2].frequency > 0.0 && poles[3].frequency == 0.0);
            ASSERT_EQ(ml_debye_poles(made, perDecade, 1.0, 1.0, poles.data(), 100, &count, nullptr), ML_OK);
            poles.resize(count);
            double difference = 0.0;
            for (const ml_term& term : TermsOf(model))
            {
                difference += term.delta_eps;
            }
            for (const ml_pole& pole : poles)
            {
                difference -= pole.delta_eps;
            }
            EXPECT_NEAR(difference, 0.0, 1e-13);
            EXPECT_NEAR(FindLargestError(made, InfoOf(model).eps_inf, poles) / error, 1.0, 0.02);
            worst = std::max(worst, error);
        }
        EXPECT_NEAR(worst / documented[perDecade - 1], 1.0, 0.02);
    }
}
TEST(DebyePoles, TakeEveryBandOfNumbers)
{
    const OpenedLibrary library = OpenBlocks(materials);
    const OwnedModel model = MakeModel(library.get(), "table", 20.0);
    const struct
    {
        double lowest, highest;
        ml_error error;
    } rows[] = {{1e-300, 1e300, ML_OK},        {1e9, 1e9, ML_OK},
                {0.0, 1.0, ML_ERROR_ARGUMENT}, {2.0, 1.0, ML_ERROR_ARGUMENT},
                {NAN, 1.0, ML_ERROR_ARGUMENT}, {1.0, infinity, ML_ERROR_ARGUMENT}};
    for (const auto& row : rows)
    {
        std::size_t count = 0;
        double worst = -1.0;
        EXPECT_EQ(ml_debye_poles(model.get(), 3, row.lowest, row.highest, nullptr, 0, &count, &worst),
                  row.error);
        EXPECT_EQ(worst >= 0.0 && worst < 1e-3, row.error == ML_OK) << row.lowest;
    }
}
} // namespace
