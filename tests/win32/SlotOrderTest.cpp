// The places of the operations in their interfaces' tables, which hosts of other compilers are built for.
#include "MaterialLibrary/IManager.h"
#include "MaterialLibrary/MaterialLibrary.h"

#include <bit>
#include <cstdint>
#include <gtest/gtest.h>

namespace
{
// How this compiler keeps a pointer to a virtual operation: one more than its offset in the table.
struct VirtualOperation
{
    std::uintptr_t offsetPlusOne;
    std::ptrdiff_t adjustment;
};

template <class Function>
std::uintptr_t SlotOf(Function function)
{
    return (std::bit_cast<VirtualOperation>(function).offsetPlusOne - 1) / sizeof(void*);
}

template <class... Functions>
void ExpectSlotsFromZero(Functions... functions)
{
    std::uintptr_t expected = 0;
    for (const std::uintptr_t slot : {SlotOf(functions)...})
    {
        EXPECT_EQ(slot, expected++);
    }
}

TEST(SlotOrder, IsWhatHostsAreBuiltFor)
{
    ExpectSlotsFromZero(&IMatLib::GetMaterialCount, &IMatLib::GetMaterial, &IMatLib::FindMaterial,
                        &IMatLib::ChooseMaterial);
    ExpectSlotsFromZero(&IMaterial::GetName, &IMaterial::GetKind, &IMaterial::GetTypeName,
                        &IMaterial::GetVendor, &IMaterial::GetComment, &IMaterial::CountTables,
                        &IMaterial::GetTable, &IMaterial::GetTableAt, &IMaterial::GetValue,
                        &IMaterial::GetIntAttribute, &IMaterial::GetAttribute);
    ExpectSlotsFromZero(&IMaterialTable::GetTableKind, &IMaterialTable::GetTemperature,
                        &IMaterialTable::GetEntryCount, &IMaterialTable::GetEntry);
}

TEST(SlotOrder, IsWhatMessageHandlersAreBuiltFor)
{
    using msg::IManager;
    ExpectSlotsFromZero(
        &IManager::Invoke, &IManager::Show, &IManager::ShowGeneric, &IManager::ShowDefaultOwner,
        &IManager::ShowGenericDefaultOwner, &IManager::ShowOnce, &IManager::ShowOnceGeneric,
        &IManager::ShowOnceDefaultOwner, &IManager::ShowOnceGenericDefaultOwner, &IManager::Ask,
        &IManager::AskGeneric, &IManager::AskDefaultOwner, &IManager::AskGenericDefaultOwner,
        &IManager::AskRemembered, &IManager::AskRememberedGeneric, &IManager::AskRememberedDefaultOwner,
        &IManager::AskRememberedGenericDefaultOwner, &IManager::Reserved17, &IManager::Query18,
        &IManager::Reserved19, &IManager::Reserved20, &IManager::Reserved21, &IManager::Reserved22,
        &IManager::Reserved23, &IManager::Query24, &IManager::Reserved25);
    EXPECT_EQ(SlotOf(&msg::IRegistrator::Remember), 0U);
    EXPECT_EQ(SlotOf(&msg::IRegistrator::IsSuppressed), 3U);
}
} // namespace
