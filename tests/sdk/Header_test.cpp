// What the kit declares and what the product declares are the same, although neither includes the other.

#include "sdk/VortanFamilyAnswers.h"

#include "effects/EffectCatalogue.h"
#include "effects/EffectMessages.h"
#include "host/IdleSuite.h"
#include "panel/PanelSuite.h"
#include "standin/host/family/Family.h"

#include <cstring>
#include <gtest/gtest.h>
#include <random>
#include <type_traits>

namespace
{
// ---- Functions that are called the same way: pointers stand for pointers, all else is the same type.

template <class Kit, class Product>
struct SameAbi : std::is_same<Kit, Product>
{
};
template <class Kit, class Product>
struct SameAbi<Kit*, Product*> : std::true_type
{
};
template <class KitResult, class... Kit, class ProductResult, class... Product>
struct SameAbi<KitResult (*)(Kit...), ProductResult (*)(Product...)>
{
    static constexpr bool areAsMany = sizeof...(Kit) == sizeof...(Product);
    template <bool asMany, class = void>
    struct Each : std::false_type
    {
    };
    template <class Unused>
    struct Each<true, Unused> : std::bool_constant<SameAbi<KitResult, ProductResult>::value &&
                                                   (SameAbi<Kit, Product>::value && ...)>
    {
    };
    static constexpr bool value = Each<areAsMany>::value;
};
static_assert(!SameAbi<int (*)(int, void*), int (*)(int)>::value, "another number of arguments");
static_assert(!SameAbi<int (*)(char), int (*)(int)>::value, "an argument of another size");
static_assert(!SameAbi<int (*)(char*), int (*)(int)>::value, "a pointer for a number");

#define EXPECT_SAME_FUNCTION(kit, product)                                                                   \
    EXPECT_TRUE((SameAbi<decltype(kit), decltype(product)>::value)) << #kit

TEST(KitAndProduct, DeclareTheSameMessage)
{
    EXPECT_EQ(sizeof(VortanMessage), sizeof(VnEffectMessage));
    EXPECT_EQ(sizeof(VortanIdentity), sizeof(VN_UUID));
    EXPECT_EQ(offsetof(VortanMessage, magic), offsetof(VnEffectMessage, magic));
    EXPECT_EQ(offsetof(VortanMessage, command), offsetof(VnEffectMessage, command));
    EXPECT_EQ(offsetof(VortanMessage, payload.group), offsetof(VnEffectMessage, group));
    EXPECT_EQ(offsetof(VortanMessage, payload.identity), offsetof(VnEffectMessage, uuid));
    EXPECT_EQ(offsetof(VortanMessage, reserved), offsetof(VnEffectMessage, reserved));
    EXPECT_TRUE((std::is_same_v<decltype(VortanMessage::payload.group), decltype(VnEffectMessage::group)>));
    EXPECT_EQ(VORTAN_MESSAGE_MAGIC, VN_MSG_MAGIC);
    EXPECT_EQ(std::uint32_t{VORTAN_GET_GROUP}, std::uint32_t{VN_MSG_GET_GROUP});
    EXPECT_EQ(std::uint32_t{VORTAN_SET_GROUP}, std::uint32_t{VN_MSG_SET_GROUP});
    EXPECT_EQ(std::uint32_t{VORTAN_GET_IDENTITY}, std::uint32_t{VN_MSG_GET_UUID});
}

TEST(KitAndProduct, DeclareTheSameIdleSuite)
{
    EXPECT_STREQ(VORTAN_IDLE_SUITE_NAME, VN_IDLE_SUITE_NAME);
    EXPECT_EQ(VORTAN_IDLE_QUEUE_LENGTH, VN_IDLE_SLOT_COUNT);
    EXPECT_EQ(sizeof(VortanIdleSuite), sizeof(VnIdleSuite));
    EXPECT_EQ(offsetof(VortanIdleSuite, ref), offsetof(VnIdleSuite, ref));
    EXPECT_EQ(offsetof(VortanIdleSuite, AddFuncToIdleStack), offsetof(VnIdleSuite, AddFuncToIdleStack));
    EXPECT_SAME_FUNCTION(VortanIdleSuite::AddFuncToIdleStack, VnIdleSuite::AddFuncToIdleStack);
    EXPECT_TRUE((SameAbi<VortanIdleFunction, IdleFunc>::value));
}

TEST(KitAndProduct, DeclareTheSamePanelSuite)
{
    EXPECT_STREQ(VORTAN_PANEL_SUITE_NAME, VN_PANEL_SUITE_NAME);
    EXPECT_EQ(sizeof(VortanPanelSuite), sizeof(VnPanelSuite));
    EXPECT_EQ(offsetof(VortanPanelSuite, panelRef), offsetof(VnPanelSuite, panelRef));
    EXPECT_EQ(offsetof(VortanPanelSuite, OpenPanel), offsetof(VnPanelSuite, OpenPanel));
    EXPECT_EQ(offsetof(VortanPanelSuite, RefreshPanel), offsetof(VnPanelSuite, RefreshPanel));
    EXPECT_EQ(offsetof(VortanPanelSuite, PanelNotify), offsetof(VnPanelSuite, PanelNotify));
    EXPECT_SAME_FUNCTION(VortanPanelSuite::OpenPanel, VnPanelSuite::OpenPanel);
    EXPECT_SAME_FUNCTION(VortanPanelSuite::RefreshPanel, VnPanelSuite::RefreshPanel);
    EXPECT_SAME_FUNCTION(VortanPanelSuite::PanelNotify, VnPanelSuite::PanelNotify);
}

TEST(KitAndProduct, DeclareTheSameBasicSuite)
{
    EXPECT_EQ(sizeof(VortanBasicSuite), sizeof(SPBasicSuite));
    EXPECT_EQ(offsetof(VortanBasicSuite, AcquireSuite), offsetof(SPBasicSuite, AcquireSuite));
    EXPECT_EQ(offsetof(VortanBasicSuite, ReleaseSuite), offsetof(SPBasicSuite, ReleaseSuite));
    EXPECT_SAME_FUNCTION(VortanBasicSuite::AcquireSuite, SPBasicSuite::AcquireSuite);
    EXPECT_SAME_FUNCTION(VortanBasicSuite::ReleaseSuite, SPBasicSuite::ReleaseSuite);
}

TEST(KitAndProduct, ShareTheMatchNameFamilies)
{
    EXPECT_STREQ(VORTAN_GEOMETRY_PREFIX, GEOMETRY_PREFIX);
    EXPECT_STREQ(VORTAN_EFFECTOR_PREFIX, EFFECTOR_PREFIX);
    EXPECT_STREQ(VORTAN_RENDERER_PREFIX, RENDERER_PREFIX);
    EXPECT_STREQ(VORTAN_MAIN_PREFIX, MAIN_MATCH_NAME);
    EXPECT_STREQ(VORTAN_LEGACY_PREFIX, LEGACY_MATCH_NAME);
    EXPECT_STREQ(VORTAN_KIT_PREFIX, KIT_MATCH_NAME);
}

TEST(KitAndProduct, ListTheSameMenuNames)
{
    struct Tables
    {
        const char** matchNames;
        const char** displayNames;
    };
    std::size_t row = 0;
    for (const Tables& tables :
         {Tables{src_match_name_array, src_display_array}, Tables{eff_match_name_array, eff_display_array},
          Tables{ren_match_name_array, ren_display_array}})
        for (std::size_t i = 0; tables.matchNames[i] != nullptr; ++i, ++row)
        {
            ASSERT_LT(row, std::size(VORTAN_MENU_NAMES));
            EXPECT_STREQ(VORTAN_MENU_NAMES[row].matchName, tables.matchNames[i]);
            EXPECT_STREQ(VORTAN_MENU_NAMES[row].menuName, tables.displayNames[i]);
        }
    EXPECT_EQ(row, std::size(VORTAN_MENU_NAMES));
}

TEST(KitAndProduct, ShortenTheSameDefaultNames)
{
    std::size_t shortened = 0;
    for (const VortanRowName& row : VORTAN_ROW_NAMES)
        EXPECT_EQ(GetItemDisplayString(row.defaultName), row.rowName);
    for (const standin::FamilyEffect& effect : standin::FamilyEffects())
        shortened += GetItemDisplayString(effect.defaultName) != effect.defaultName ? 1 : 0;
    EXPECT_EQ(shortened, std::size(VORTAN_ROW_NAMES));
}

TEST(KitAndProduct, WriteAnIdentityAsTheSameText)
{
    EXPECT_STREQ(VORTAN_ZERO_IDENTITY_TEXT, ZERO_UUID_TEXT);
    EXPECT_EQ(VORTAN_IDENTITY_TEXT_SIZE, static_cast<int>(sizeof(VN_UUIDStr)));
    std::mt19937 random(17);
    for (int i = 0; i < 200; ++i)
    {
        VortanIdentity identity;
        for (std::uint8_t& byte : identity.bytes)
            byte = static_cast<std::uint8_t>(random());
        VN_UUID uuid{};
        std::memcpy(&uuid, &identity, sizeof uuid);
        char text[VORTAN_IDENTITY_TEXT_SIZE];
        VortanFormatIdentity(&identity, text);
        EXPECT_STREQ(text, GetUUIDStr(uuid).text);
    }
}
} // namespace
