#include "chooser/MaterialColumns.h"

namespace
{
constexpr MLMATERIALKIND shownForAll = MLMATERIAL_NOT_SET;

constexpr MaterialColumn columns[] = {
    {COLUMNKEY_MARKER, MLTEXT_MARKER, GridValueType::Mark, shownForAll},
    {COLUMNKEY_TYPE, MLTEXT_TYPE, GridValueType::Text, shownForAll},
    {COLUMNKEY_BULK_RESISTIVITY, MLTEXT_BULK_RESISTIVITY, GridValueType::Number, MLMATERIAL_DIELECTRIC},
    {COLUMNKEY_THICKNESS, MLTEXT_THICKNESS, GridValueType::Number, MLMATERIAL_METAL},
    {COLUMNKEY_ER, MLTEXT_ER, GridValueType::Number, MLMATERIAL_METAL},
    {COLUMNKEY_LOSS_TANGENT, MLTEXT_LOSS_TANGENT, GridValueType::Number, MLMATERIAL_METAL},
    {COLUMNKEY_ROUGHNESS_TOP, MLTEXT_ROUGHNESS_TOP, GridValueType::Number, MLMATERIAL_DIELECTRIC},
    {COLUMNKEY_ROUGHNESS_BOTTOM, MLTEXT_ROUGHNESS_BOTTOM, GridValueType::Number, MLMATERIAL_DIELECTRIC},
    {COLUMNKEY_MATERIAL, MLTEXT_MATERIAL, GridValueType::Text, shownForAll},
    {COLUMNKEY_TEMPERATURE, MLTEXT_TEMPERATURE, GridValueType::Number, MLMATERIAL_METAL},
    {COLUMNKEY_TECHNOLOGY, MLTEXT_TECHNOLOGY, GridValueType::Text, MLMATERIAL_METAL},
    {COLUMNKEY_VENDOR, MLTEXT_VENDOR, GridValueType::Text, shownForAll},
    {COLUMNKEY_COMMENT, MLTEXT_COMMENT, GridValueType::Text, shownForAll},
};
} // namespace

std::span<const MaterialColumn> GetMaterialColumns()
{
    return columns;
}
