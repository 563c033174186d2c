// The tables' layout, written out once more from the fact sheet of the host's binary interface.

#include <map>
#include <type_traits>

#include "standin/host/suites/SuiteDescription.h"
#include "tests/standin/Client.h"
#include "tests/standin/HostTest.h"

namespace standin
{
namespace
{
struct TableFacts
{
    const char* name;
    A_long version;
    int slotCount;
    std::map<int, std::string> functions;
};

const std::map<int, std::string> effectFunctions{{0, "AEGP_GetLayerNumEffects"},
                                                 {1, "AEGP_GetLayerEffectByIndex"},
                                                 {2, "AEGP_GetInstalledKeyFromLayerEffect"},
                                                 {4, "AEGP_GetEffectFlags"},
                                                 {5, "AEGP_SetEffectFlags"},
                                                 {6, "AEGP_ReorderEffect"},
                                                 {7, "AEGP_EffectCallGeneric"},
                                                 {8, "AEGP_DisposeEffect"},
                                                 {9, "AEGP_ApplyEffect"},
                                                 {10, "AEGP_DeleteLayerEffect"},
                                                 {11, "AEGP_GetNumInstalledEffects"},
                                                 {12, "AEGP_GetNextInstalledEffect"},
                                                 {14, "AEGP_GetEffectMatchName"}};

const std::map<int, std::string> olderUtilityFunctions{{0, "AEGP_ReportInfo"},
                                                       {1, "AEGP_GetDriverPluginInitFuncVersion"},
                                                       {5, "AEGP_StartUndoGroup"},
                                                       {6, "AEGP_EndUndoGroup"}};

const std::vector<TableFacts> allFacts{
    {"SP Suites Suite", 2, 14, {{2, "AddSuite"}}},
    {"AEGP Command Suite",
     1,
     8,
     {{0, "AEGP_GetUniqueCommand"},
      {1, "AEGP_InsertMenuCommand"},
      {4, "AEGP_EnableCommand"},
      {6, "AEGP_CheckMarkMenuCommand"},
      {7, "AEGP_DoCommand"}}},
    {"AEGP Register Suite",
     6,
     12,
     {{0, "AEGP_RegisterCommandHook"},
      {1, "AEGP_RegisterUpdateMenuHook"},
      {2, "AEGP_RegisterDeathHook"},
      {8, "AEGP_RegisterIdleHook"}}},
    {"AEGP Workspace Panel Suite",
     1,
     5,
     {{0, "AEGP_RegisterCreatePanelHook"}, {3, "AEGP_ToggleVisibility"}, {4, "AEGP_IsShown"}}},
    {"AEGP Item Suite", 3, 20, {{1, "AEGP_GetActiveItem"}, {7, "AEGP_GetItemID"}}},
    {"AEGP Layer Suite",
     5,
     39,
     {{2, "AEGP_GetActiveLayer"},
      {5, "AEGP_GetLayerParentComp"},
      {33, "AEGP_ConvertLayerToCompTime"},
      {35, "AEGP_GetLayerID"}}},
    {"AEGP Effect Suite", 1, 16, effectFunctions},
    {"AEGP Effect Suite", 3, 17, effectFunctions},
    {"AEGP Stream Suite",
     4,
     20,
     {{4, "AEGP_GetNewEffectStreamByIndex"}, {6, "AEGP_DisposeStream"}, {7, "AEGP_GetStreamName"}}},
    {"AEGP Stream Suite", 7, 22, {{7, "AEGP_DisposeStream"}}},
    {"AEGP Dynamic Stream Suite",
     2,
     17,
     {{4, "AEGP_GetDynamicStreamFlags"},
      {5, "AEGP_SetDynamicStreamFlag"},
      {11, "AEGP_SetStreamName"},
      {15, "AEGP_GetNewParentStreamRef"}}},
    {"AEGP Dynamic Stream Suite", 5, 26, {{6, "AEGP_SetDynamicStreamFlag"}}},
    {"AEGP Utility Suite", 3, 9, olderUtilityFunctions},
    {"AEGP Utility Suite", 7, 25, olderUtilityFunctions},
    {"AEGP Utility Suite",
     11,
     31,
     {{0, "AEGP_ReportInfo"},
      {1, "AEGP_GetDriverPluginInitFuncVersion"},
      {6, "AEGP_StartUndoGroup"},
      {7, "AEGP_EndUndoGroup"}}},
    {"PF AE App Suite", 6, 11, {{0, "PF_AppGetBgColor"}}}};

static_assert(sizeof(A_long) == 4 && std::is_signed_v<A_long>);
static_assert(sizeof(A_u_long) == 4 && std::is_unsigned_v<A_u_long>);
static_assert(sizeof(A_short) == 2 && sizeof(A_u_short) == 2);
static_assert(sizeof(A_Boolean) == 1 && std::is_unsigned_v<A_Boolean>);
static_assert(sizeof(A_Time) == 8 && sizeof(PF_App_Color) == 6);
static_assert(sizeof(PanelFunctions) == 24);
static_assert(sizeof(EffectRefH) == 8 && std::is_pointer_v<std::remove_pointer_t<EffectRefH>>);
static_assert(std::is_same_v<EntryPoint, A_Err (*)(void*, A_long, A_long, A_long, void**)>);
static_assert(std::is_same_v<CommandHook, A_Err (*)(void*, void*, A_long, A_u_long, A_Boolean, A_Boolean*)>);
static_assert(std::is_same_v<UpdateMenuHook, A_Err (*)(void*, void*, char)>);
static_assert(std::is_same_v<IdleHook, A_Err (*)(void*, void*, A_long*)>);
static_assert(std::is_same_v<DeathHook, A_Err (*)(void*, void*)>);

std::map<int, std::string> functionsOf(const SuiteDescription& suite)
{
    std::map<int, std::string> functions;
    for (const SlotDescription& slot : suite.slots)
        functions[slot.slot] = slot.function;
    return functions;
}

TEST(Layout, TheHostHasExactlyTheSheetsTables)
{
    EXPECT_EQ(SuiteDescriptions().size(), allFacts.size() + 1); // And the basic suite.
    for (const TableFacts& facts : allFacts)
        EXPECT_NE(FindSuite(facts.name, facts.version), nullptr) << facts.name << " " << facts.version;
}

TEST(Layout, EveryTableHasExactlyTheSheetsSlots)
{
    for (const TableFacts& facts : allFacts)
    {
        SCOPED_TRACE(std::string(facts.name) + " " + std::to_string(facts.version));
        const SuiteDescription& suite = *FindSuite(facts.name, facts.version);
        EXPECT_EQ(suite.slotCount, facts.slotCount);
        EXPECT_EQ(suite.table.size(), static_cast<std::size_t>(facts.slotCount));
        EXPECT_EQ(functionsOf(suite), facts.functions);
    }
}

TEST(Layout, TheBasicSuiteHasItsSevenSlots)
{
    const std::map<int, std::string> expected{
        {0, "AcquireSuite"}, {1, "ReleaseSuite"},    {2, "IsEqual"},  {3, "AllocateBlock"},
        {4, "FreeBlock"},    {5, "ReallocateBlock"}, {6, "Undefined"}};
    EXPECT_EQ(DescriptionOf(SuiteId::basic).table.size(), 7u);
    EXPECT_EQ(functionsOf(DescriptionOf(SuiteId::basic)), expected);
}

class Slots : public HostTest
{
};

TEST_F(Slots, EachReservedSlotIsANamedTrap)
{
    int reserved = 0;
    inHook(
        [&](Client& client)
        {
            for (const TableFacts& facts : allFacts)
                for (int slot = 0; slot < facts.slotCount; ++slot)
                {
                    if (facts.functions.count(slot) != 0)
                        continue;
                    ++reserved;
                    EXPECT_NE(client.Call(facts.name, facts.version, slot), errNone);
                    const std::vector<Finding> findings = host.TakeFindings();
                    ASSERT_EQ(findings.size(), 1u) << facts.name << " slot " << slot;
                    EXPECT_EQ(findings[0].id, "reserved-slot");
                    EXPECT_EQ(findings[0].sentence, "Slot " + std::to_string(slot) + " of \"" + facts.name +
                                                        "\" version " + std::to_string(facts.version) +
                                                        " is reserved and was called.");
                }
        });
    EXPECT_EQ(reserved, 225); // 292 slots less 67 functions.
}

/// Without arguments that mean anything a function cannot do its work, but it can be told by its line.
TEST_F(Slots, EachSlotIsTheSheetsFunction)
{
    inHook(
        [&](Client& client)
        {
            for (const TableFacts& facts : allFacts)
                for (const auto& [slot, function] : facts.functions)
                {
                    host.ClearTrace();
                    void* none = nullptr;
                    host.Faults().FailFunction(function); // Nothing is read through null arguments.
                    EXPECT_EQ(client.Call(facts.name, facts.version, slot, none, none, none, none, none, none,
                                          none),
                              errGeneric);
                    host.Faults().Disarm();
                    EXPECT_EQ(host.Trace().Records().back().function, function);
                    EXPECT_EQ(host.Trace().Records().back().version, facts.version);
                    EXPECT_EQ(host.Trace().Records().back().slot, slot);
                }
        });
}
} // namespace
} // namespace standin
