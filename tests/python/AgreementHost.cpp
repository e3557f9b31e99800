// Asks everything of the materials of two files, through GetValue of a library that was just opened for each
// question, and through the interface for C:
//
//   agreement_host ANSWERS DIELECTRICS.mat METALS.mat FREQUENCY...
//
// ANSWERS becomes a file of doubles: for each material, its two properties and each frequency (Hz) the
// answers at 25 and at 60 degrees, each as GetValue's, the C interface's and its status.

#include "MaterialLibrary/IMatLib.h"
#include "MaterialLibrary/IMaterial.h"
#include "MaterialLibrary/MaterialLibrary.h"
#include "MaterialLibrary/materials.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>
#include <vector>

namespace
{
struct Answer
{
    double host;
    double bulk;
    double status;
};

constexpr double temperatures[] = {25.0, 60.0};
constexpr std::size_t propertyCount = 2;

int PropertyOf(std::int32_t kind, std::size_t number)
{
    constexpr int properties[][propertyCount] = {{ML_ER, ML_LOSS_TANGENT},
                                                 {ML_ROUGHNESS_TOP, ML_ROUGHNESS_BOTTOM}};
    return properties[kind == ML_METAL ? 1 : 0][number];
}

class CQuestions
{
public:
    CQuestions(const char* const* paths, std::vector<double> frequencies_)
        : list(std::string(paths[0]) + ";" + paths[1]), frequencies(std::move(frequencies_))
    {
        if (ml_open_files(paths, 2, ML_OPEN_DEFAULT, &bulk) != ML_OK || ml_count_materials(bulk) == 0)
        {
            std::fprintf(stderr, "%s: no materials\n", list.c_str());
            std::exit(1);
        }
        answers.resize(ml_count_materials(bulk) * propertyCount * frequencies.size() *
                       std::size(temperatures));
    }

    // A library that was just opened answers one question for each material; the next gets a new library.
    std::vector<Answer> AskAll()
    {
        for (std::size_t property = 0; property < propertyCount; ++property)
        {
            for (std::size_t f = 0; f < frequencies.size(); ++f)
            {
                for (std::size_t t = 0; t < std::size(temperatures); ++t)
                {
                    IMatLib* const library = CreateMaterialLibrary(list.c_str());
                    AskOnce(*library, property, f, t);
                    FreeMaterialLibrary(library);
                }
            }
        }
        ml_close(bulk);
        return answers;
    }

private:
    void AskOnce(IMatLib& library, std::size_t property, std::size_t f, std::size_t t)
    {
        for (std::size_t i = 0; i < ml_count_materials(bulk); ++i)
        {
            const ml_material* const material = ml_get_material(bulk, i);
            ml_material_info info{};
            info.struct_size = sizeof info;
            std::uint8_t status = 0;
            Answer answer{NAN, NAN, NAN};
            if (ml_get_info(material, &info) == ML_OK &&
                ml_values(material, PropertyOf(info.kind, property), temperatures[t], ML_AS_MEASURED,
                          &frequencies[f], 1, &answer.bulk, &status) == ML_OK)
            {
                answer.status = status;
            }
            library.GetMaterial(static_cast<int>(i))
                ->GetValue(static_cast<MLTABLEKIND>(PropertyOf(info.kind, property)), frequencies[f],
                           &answer.host, temperatures[t]);
            answers[((i * propertyCount + property) * frequencies.size() + f) * std::size(temperatures) + t] =
                answer;
        }
    }

    std::string list;
    std::vector<double> frequencies;
    ml_library* bulk = nullptr;
    std::vector<Answer> answers;
};
} // namespace

int main(int argc, char** argv)
{
    if (argc < 5)
    {
        return 2;
    }
    std::vector<double> frequencies;
    for (int i = 4; i < argc; ++i)
    {
        frequencies.push_back(std::strtod(argv[i], nullptr));
    }
    const std::vector<Answer> answers = CQuestions(argv + 2, frequencies).AskAll();
    std::ofstream file(argv[1], std::ios::binary);
    file.write(reinterpret_cast<const char*>(answers.data()),
               static_cast<std::streamsize>(answers.size() * sizeof(Answer)));
    return file.flush() ? 0 : 1;
}
