#include "MaterialLibrary/MLTypes.h"
#include "model/CFakeMaterialLib.h"
#include "model/CMaterial.h"

#include <span>

namespace
{
constexpr MLLEGACYRECORD getinaks = {.name = "Getinaks",
                                     .thickness = 0.0002,
                                     .technology = MLTECHNOLOGY_CORE,
                                     .numbers = {1, 0, 3.3, 0.03, 0.0}};
constexpr MLLEGACYRECORD fiberglass = {.name = "Fiberglass",
                                       .hasThickness = true,
                                       .thickness = 0.0004,
                                       .technology = MLTECHNOLOGY_PREPREG,
                                       .numbers = {1, 1, 4.4, 0.04, 0.0}};

struct Point
{
    double frequency; // Hz
    double permittivity;
    double lossTangent;
};

constexpr Point pointsWith1GHz[] = {
    {1e6, 6.0, 0.035}, {5e7, 5.9, 0.03}, {1e9, 5.25, 0.028}, {5e9, 5.0, 0.027}};
constexpr Point pointsWithout1GHz[] = {{1e6, 6.0, 0.035}, {5e7, 5.9, 0.034}, {5e9, 5.0, 0.027}};
constexpr Point singlePoint[] = {{6.0, 2.2, 0.03}}; // at 6 Hz on purpose
constexpr Point equalPoints[] = {{9e6, 4.3, 0.03}, {1.1e7, 4.3, 0.03}};

struct Sample
{
    const MLLEGACYRECORD& record;
    const char* name; // null: the record's
    const char* typeName;
    const char* comment;
    std::span<const Point> points;
};

const Sample samples[] = {
    {getinaks, "Getinaks", "FR4-MTG", "Table contains 1GHz entry", pointsWith1GHz},
    {getinaks, "Getinaks - 2", "FR4-MTG", "Table doesn't contain 1GHz entry", pointsWithout1GHz},
    {fiberglass, nullptr, "FR4-MTG Also", "Pretty good stuff", singlePoint},
    {getinaks, "Singular", "FR4-MTG", "Table contains several the same entries", equalPoints},
};
} // namespace

void CFakeMaterialLib::FillSampleLibrary()
{
    for (const Sample& sample : samples)
    {
        CMaterial& material = MakeMaterial(sample.record);
        for (const Point& point : sample.points)
        {
            material.AddDielectricPoint(point.frequency, point.permittivity, point.lossTangent,
                                        CMaterialTable::defaultTemperature);
        }
        if (sample.name != nullptr)
        {
            material.SetName(sample.name);
        }
        material.SetTypeName(sample.typeName);
        material.SetVendor("Nanya");
        material.SetComment(sample.comment);
        AddMaterial(material);
    }
}
