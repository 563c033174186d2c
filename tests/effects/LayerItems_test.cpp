// What a read of a layer gives, and with which host calls, when the host does its part.

#include "effects/LayerItems.h"

#include "tests/effects/ReadFixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <map>

using namespace standin;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace
{
constexpr const char* sheets = "QVK VORTSRC Lamps";
constexpr const char* routes = "QVK VORTSRC Routes";
constexpr const char* jitter = "QVK VORTEFF Jitter";
constexpr const char* dots = "QVK VORTREN Dots";
constexpr const char* mainEffect = "QVK VORTAN TWO";
constexpr const char* fill = "ADBE Fill";

std::map<std::string, int> countByFunction(const Host& host)
{
    std::map<std::string, int> counts;
    for (const std::string& call : host.CallTexts())
        ++counts[call.substr(0, call.find('('))];
    return counts;
}

void expectNoTraceOfTheRead(ProductHost& product)
{
    product.host.CheckSuiteBalance();
    EXPECT_EQ(product.host.LeakedReferences(), 0);
    EXPECT_THAT(product.host.UndoNames(), IsEmpty());
    EXPECT_THAT(product.host.ViewLog(), IsEmpty());
    EXPECT_THAT(product.host.Alerts(), IsEmpty());
    EXPECT_EQ(product.host.FindingsReport(), "");
}
} // namespace

TEST(LayerItems, OfANullLayerCostNoCall)
{
    ProductHost product;
    std::vector<ObjectItem> items(1);
    (void)product.host.RunInHook(
        [&] { items = CreateItemsFromLayer(product.Id(), product.Basic(), nullptr, -1); });
    EXPECT_THAT(items, IsEmpty());
    EXPECT_THAT(product.host.CallTexts(), IsEmpty());
    EXPECT_THAT(CreateItemsFromLayer(product.Id(), nullptr, nullptr, -1), IsEmpty());
    expectNoTraceOfTheRead(product);
}

TEST(LayerItems, OfAnEmptyLayerSendNoMessage)
{
    ProductHost product;
    EXPECT_THAT(Read(product).items, IsEmpty());
    EXPECT_THAT(product.host.CallTexts(), ElementsAre("Basic AcquireSuite(\"AEGP Effect Suite\", 1)",
                                                      "Effect 1 AEGP_GetLayerNumEffects(layer 1) -> 0",
                                                      "Basic ReleaseSuite(\"AEGP Effect Suite\", 1)"));
    expectNoTraceOfTheRead(product);
}

TEST(LayerItems, WithoutABasicSuiteThrow516)
{
    ProductHost product;
    EXPECT_EQ(ReadOver(product, nullptr).result.thrownNumber, 516);
    EXPECT_THAT(product.host.CallTexts(), IsEmpty());
}

TEST(LayerItems, OfAnOutsiderHaveNameSwitchZeroIdentity)
{
    ProductHost product;
    product.Add(fill, "F");
    EXPECT_THAT(Read(product).Lines(),
                ElementsAre("00000000-0000-0000-0000-000000000000 Fill group -1 active 1 tag ADBE Fill"));
    product.host.Effect("F").flags = 0;
    product.host.Effect("F").customName = "Backdrop";
    EXPECT_THAT(Read(product).Lines(),
                ElementsAre("00000000-0000-0000-0000-000000000000 Backdrop group -1 active 0 tag ADBE Fill"));
    expectNoTraceOfTheRead(product);
}

TEST(LayerItems, AreReadWithExactlyTheseCalls)
{
    ProductHost product;
    product.Add(routes, "R");
    product.Add(fill, "F");
    product.host.Effect("R").family.group = 4;
    product.host.Effect("R").customName = "My routes";
    product.host.Effect("F").flags = 4;

    EXPECT_THAT(
        Read(product).Lines(),
        ElementsAre("01010101-0101-0101-0101-010100000001 My routes group 4 active 1 tag QVK VORTSRC Routes",
                    "00000000-0000-0000-0000-000000000000 Fill group -1 active 0 tag ADBE Fill"));
    const std::string routesKey = std::to_string(product.Key(routes));
    const std::string fillKey = std::to_string(product.Key(fill));
    EXPECT_THAT(
        product.host.CallTexts(),
        ElementsAre(
            "Basic AcquireSuite(\"AEGP Effect Suite\", 1)", "Effect 1 AEGP_GetLayerNumEffects(layer 1) -> 2",
            // The groups.
            "Basic AcquireSuite(\"AEGP Layer Suite\", 5)",
            "Layer 5 AEGP_ConvertLayerToCompTime(layer 1, time 0/100) -> time 0/100",
            "Effect 1 AEGP_GetLayerNumEffects(layer 1) -> 2",
            "Effect 1 AEGP_GetLayerEffectByIndex(id 7, layer 1, 0) -> effect R",
            "Effect 1 AEGP_GetEffectFlags(effect R) -> 1", "Basic AcquireSuite(\"AEGP Effect Suite\", 3)",
            "Effect 3 AEGP_EffectCallGeneric(id 7, effect R, time 0/100, 17, VORT 1 group -1) -> group 4",
            "Effect 3 AEGP_DisposeEffect(effect R)",
            "Layer 5 AEGP_ConvertLayerToCompTime(layer 1, time 0/100) -> time 0/100",
            "Effect 1 AEGP_GetLayerNumEffects(layer 1) -> 2",
            "Effect 1 AEGP_GetLayerEffectByIndex(id 7, layer 1, 1) -> effect F",
            "Effect 1 AEGP_GetEffectFlags(effect F) -> 4",
            "Effect 3 AEGP_EffectCallGeneric(id 7, effect F, time 0/100, 17, VORT 1 group -1) -> group -1",
            "Effect 3 AEGP_DisposeEffect(effect F)",
            // The identities.
            "Layer 5 AEGP_ConvertLayerToCompTime(layer 1, time 0/100) -> time 0/100",
            "Effect 1 AEGP_GetLayerNumEffects(layer 1) -> 2",
            "Effect 1 AEGP_GetLayerEffectByIndex(id 7, layer 1, 0) -> effect R",
            "Effect 1 AEGP_GetEffectFlags(effect R) -> 1",
            "Effect 3 AEGP_EffectCallGeneric(id 7, effect R, time 0/100, 17, "
            "VORT 5 uuid 00000000-0000-0000-0000-000000000000) -> uuid 01010101-0101-0101-0101-010100000001",
            "Effect 3 AEGP_DisposeEffect(effect R)",
            "Layer 5 AEGP_ConvertLayerToCompTime(layer 1, time 0/100) -> time 0/100",
            "Effect 1 AEGP_GetLayerNumEffects(layer 1) -> 2",
            "Effect 1 AEGP_GetLayerEffectByIndex(id 7, layer 1, 1) -> effect F",
            "Effect 1 AEGP_GetEffectFlags(effect F) -> 4",
            "Effect 3 AEGP_EffectCallGeneric(id 7, effect F, time 0/100, 17, "
            "VORT 5 uuid 00000000-0000-0000-0000-000000000000) -> uuid 00000000-0000-0000-0000-000000000000",
            "Effect 3 AEGP_DisposeEffect(effect F)",
            // The host reads.
            "Effect 1 AEGP_GetLayerEffectByIndex(id 7, layer 1, 0) -> effect R",
            "Effect 1 AEGP_GetInstalledKeyFromLayerEffect(effect R) -> " + routesKey,
            "Effect 1 AEGP_GetEffectMatchName(" + routesKey + ") -> \"QVK VORTSRC Routes\"",
            "Basic AcquireSuite(\"AEGP Stream Suite\", 4)",
            "Stream 4 AEGP_GetNewEffectStreamByIndex(id 7, effect R, 1) -> stream R.1",
            "Basic AcquireSuite(\"AEGP Dynamic Stream Suite\", 2)",
            "DynamicStream 2 AEGP_GetNewParentStreamRef(id 7, stream R.1) -> stream R",
            "Effect 1 AEGP_GetEffectFlags(effect R) -> 1",
            "Stream 4 AEGP_GetStreamName(stream R, 1) -> \"My routes\"",
            "Basic AcquireSuite(\"AEGP Stream Suite\", 7)", "Stream 7 AEGP_DisposeStream(stream R.1)",
            "Stream 7 AEGP_DisposeStream(stream R)", "Effect 1 AEGP_DisposeEffect(effect R)",
            "Effect 1 AEGP_GetLayerEffectByIndex(id 7, layer 1, 1) -> effect F",
            "Effect 1 AEGP_GetInstalledKeyFromLayerEffect(effect F) -> " + fillKey,
            "Effect 1 AEGP_GetEffectMatchName(" + fillKey + ") -> \"ADBE Fill\"",
            "Stream 4 AEGP_GetNewEffectStreamByIndex(id 7, effect F, 1) -> stream F.1",
            "DynamicStream 2 AEGP_GetNewParentStreamRef(id 7, stream F.1) -> stream F",
            "Effect 1 AEGP_GetEffectFlags(effect F) -> 4",
            "Stream 4 AEGP_GetStreamName(stream F, 1) -> \"Fill\"", "Stream 7 AEGP_DisposeStream(stream F.1)",
            "Stream 7 AEGP_DisposeStream(stream F)", "Effect 1 AEGP_DisposeEffect(effect F)",
            "Basic ReleaseSuite(\"AEGP Dynamic Stream Suite\", 2)",
            "Basic ReleaseSuite(\"AEGP Effect Suite\", 1)", "Basic ReleaseSuite(\"AEGP Effect Suite\", 3)",
            "Basic ReleaseSuite(\"AEGP Layer Suite\", 5)", "Basic ReleaseSuite(\"AEGP Stream Suite\", 4)",
            "Basic ReleaseSuite(\"AEGP Stream Suite\", 7)"));
    expectNoTraceOfTheRead(product);
}

TEST(LayerItems, AreReadAlikeOnALongStack)
{
    ProductHost product;
    for (const char* label : {"A", "B", "C"})
        product.Add(jitter, label);
    product.Add(fill, "F");
    product.Add(mainEffect, "M");
    (void)Read(product);
    const Calls read = TracedStackOf(product, {"A", "B", "C", "F", "M"}).Read();
    EXPECT_EQ(product.host.CallTexts(SuiteTraffic::leftOut), read);
    EXPECT_EQ(product.host.CallTexts().size(), read.size() + 12) << "six suites, acquired and released once";
    expectNoTraceOfTheRead(product);
}

TEST(LayerItems, CostTwoMessagesAndTenCallsEach)
{
    for (const int n : {1, 2, 7, 40})
    {
        ProductHost product;
        for (int i = 0; i < n; ++i)
            product.Add(dots, "D" + std::to_string(i));
        EXPECT_EQ(static_cast<int>(Read(product).items.size()), n);
        const std::map<std::string, int> expected = {
            {"Basic AcquireSuite", 6},
            {"Basic ReleaseSuite", 6},
            {"DynamicStream 2 AEGP_GetNewParentStreamRef", n},
            {"Effect 1 AEGP_DisposeEffect", n},
            {"Effect 1 AEGP_GetEffectFlags", 3 * n},
            {"Effect 1 AEGP_GetEffectMatchName", n},
            {"Effect 1 AEGP_GetInstalledKeyFromLayerEffect", n},
            {"Effect 1 AEGP_GetLayerEffectByIndex", 3 * n},
            {"Effect 1 AEGP_GetLayerNumEffects", 1 + 2 * n},
            {"Effect 3 AEGP_DisposeEffect", 2 * n},
            {"Effect 3 AEGP_EffectCallGeneric", 2 * n},
            {"Layer 5 AEGP_ConvertLayerToCompTime", 2 * n},
            {"Stream 4 AEGP_GetNewEffectStreamByIndex", n},
            {"Stream 4 AEGP_GetStreamName", n},
            {"Stream 7 AEGP_DisposeStream", 2 * n},
        };
        EXPECT_EQ(countByFunction(product.host), expected) << n << " effects";
        EXPECT_EQ(product.host.CallTexts().size(), static_cast<std::size_t>(1 + 22 * n + 12));
        expectNoTraceOfTheRead(product);
    }
}

TEST(LayerItems, KeepASwitchedOffEffectInItsPlace)
{
    ProductHost product;
    product.Add(sheets, "A");
    product.Add(jitter, "B");
    product.Add(dots, "C");
    product.host.User().SetActive("B", Switch::off);
    EXPECT_THAT(
        Read(product).Lines(),
        ElementsAre(product.Uuid("A") + " Vortan Sheets Object group 0 active 1 tag QVK VORTSRC Lamps",
                    product.Uuid("B") + " Vortan Jitter Effector group 0 active 0 tag QVK VORTEFF Jitter",
                    product.Uuid("C") + " Vortan Dots Renderer group 0 active 1 tag QVK VORTREN Dots"));
    EXPECT_EQ(product.host.FindingsReport(), "");
}

TEST(LayerItems, TakeNoFlagButTheActiveOne)
{
    ProductHost product;
    product.Add(sheets, "A");
    product.Add(sheets, "B");
    product.host.Effect("A").flags = 2 | 4 | 8;
    product.host.Effect("B").flags = 1 | 2 | 4 | 8;
    const std::vector<ObjectItem> items = Read(product).items;
    ASSERT_EQ(items.size(), 2u);
    EXPECT_EQ(items[0].active, 0);
    EXPECT_EQ(items[1].active, 1);
}

TEST(LayerItems, OfOneKindHaveOwnIdentitiesOneTag)
{
    ProductHost product;
    product.Add(sheets, "A");
    product.Add(sheets, "B");
    product.host.User().Rename("B", "Second");
    const std::vector<ObjectItem> items = Read(product).items;
    ASSERT_EQ(items.size(), 2u);
    EXPECT_EQ(items[0].uuid, product.Uuid("A"));
    EXPECT_EQ(items[1].uuid, product.Uuid("B"));
    EXPECT_NE(items[0].uuid, items[1].uuid);
    EXPECT_EQ(items[0].name, "Vortan Sheets Object");
    EXPECT_EQ(items[1].name, "Second");
    EXPECT_EQ(items[0].tag, sheets);
    EXPECT_EQ(items[1].tag, sheets);
    EXPECT_EQ(product.host.FindingsReport(), "");
}

TEST(LayerItems, LeaveNoEffectOut)
{
    ProductHost product;
    std::vector<std::string> expected;
    for (const FamilyEffect& effect : FamilyEffects())
    {
        const std::string label = effect.matchName;
        product.Add(effect.matchName, label);
        product.host.Effect(label).groupHidden = true;
        expected.push_back(product.Uuid(label) + " " + effect.defaultName + " group 0 active 1 tag " + label);
    }
    EXPECT_EQ(expected.size(), 21u);
    EXPECT_EQ(Read(product).Lines(), expected);
    EXPECT_EQ(product.host.FindingsReport(), "");
}

TEST(LayerItems, CarryTheAnsweredGroupSignExtended)
{
    ProductHost product;
    for (const char* label : {"A", "B", "C", "D", "E"})
        product.Add(sheets, label);
    product.host.Effect("A").family.group = 10;
    product.host.Effect("B").family.rigidity = Rigidity::rigid;
    product.host.Effect("C").behaviour = AnswersGroup(std::numeric_limits<std::int16_t>::min());
    product.host.Effect("D").behaviour = AnswersGroup(std::numeric_limits<std::int16_t>::max());
    std::vector<int> groups;
    for (const ObjectItem& item : Read(product).items)
        groups.push_back(item.group);
    EXPECT_THAT(groups, ElementsAre(10, -1, -32768, 32767, 0));
    EXPECT_EQ(product.host.FindingsReport(), "");
}

TEST(LayerItems, AreTheSameWhateverTheLastArgumentIs)
{
    ProductHost product;
    product.Add(sheets, "A");
    product.Add(fill, "F");
    const std::vector<std::string> lines = Read(product, -1).Lines();
    const std::vector<std::string> calls = product.host.CallTexts();
    for (const int ignored : {0, 1, 2, 7, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()})
    {
        EXPECT_EQ(Read(product, ignored).Lines(), lines) << ignored;
        EXPECT_EQ(product.host.CallTexts(), calls) << ignored;
    }
}

TEST(LayerItems, AskAtTheLayersStartInCompTime)
{
    ProductHost product;
    product.Add(sheets, "A");
    product.host.State().FindLayer(product.layerId)->startTime = 250;
    (void)Read(product);
    EXPECT_THAT(product.host.CallTexts(),
                ::testing::Contains("Effect 3 AEGP_EffectCallGeneric(id 7, effect A, time 250/100, 17, "
                                    "VORT 1 group -1) -> group 0"));
}

TEST(LayerItems, PrintNothingAndChangeNothing)
{
    ProductHost product;
    product.Add(sheets, "A");
    product.Add(fill, "F");
    const ProjectState before = product.host.State();
    testing::internal::CaptureStdout();
    (void)Read(product);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    EXPECT_TRUE(product.host.State() == before);
    expectNoTraceOfTheRead(product);
}

TEST(LayerItems, KeepTheBytesOfANonUtf8Name)
{
    ProductHost product;
    product.Add(sheets, "A");
    product.Add(sheets, "B");
    product.host.Effect("A").customName = "\xff\xfe caf\xe9 \xc3";
    product.host.Effect("B").customName = "";
    const std::vector<ObjectItem> items = Read(product).items;
    ASSERT_EQ(items.size(), 2u);
    EXPECT_EQ(items[0].name, "\xff\xfe caf\xe9 \xc3");
    EXPECT_EQ(items[1].name, "");
    EXPECT_EQ(product.host.FindingsReport(), "");
}

TEST(LayerItems, TakeNamesOfUpTo127Characters)
{
    ProductHost product;
    product.Add(sheets, "A");
    product.Add(sheets, "B");
    product.host.Effect("A").customName = std::string(127, 'x');
    const std::vector<ObjectItem> items = Read(product).items;
    ASSERT_EQ(items.size(), 2u);
    EXPECT_EQ(items[0].name, std::string(127, 'x'));
    EXPECT_EQ(items[1].name, "Vortan Sheets Object");
}

TEST(LayerItems, TakeTheNameAsTheHostCutsIt)
{
    HostOptions options;
    options.nameLimit = NameLimit::published;
    ProductHost product(options);
    product.Add(sheets, "A");
    product.host.Effect("A").customName = "0123456789012345678901234567890123456789";
    const std::vector<ObjectItem> items = Read(product).items;
    ASSERT_EQ(items.size(), 1u);
    EXPECT_EQ(items[0].name, "0123456789012345678901234567890");
}
