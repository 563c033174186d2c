// Suites that plug-ins publish, and the siblings that use them.

#include "standin/host/family/Sibling.h"
#include "tests/standin/Client.h"
#include "tests/standin/FindingsOf.h"
#include "tests/standin/HostTest.h"

namespace standin
{
namespace
{
using ::testing::ElementsAre;

/// What the published functions were called with.
struct Calls
{
    std::vector<std::string> lines;
};

Calls& of(void* ref) { return *static_cast<Calls*>(ref); }

struct PanelWords
{
    void* ref;
    int (*open)(void*, unsigned char);
    int (*refresh)(void*);
    int (*notify)(void*, const char*);
};

struct IdleWords
{
    void* ref;
    int (*add)(void*, IdleFunction, void*);
};

int open(void* ref, unsigned char force)
{
    of(ref).lines.push_back("open " + std::to_string(force));
    return 0;
}

int refresh(void* ref)
{
    of(ref).lines.push_back("refresh");
    return 0;
}

int notify(void* ref, const char* text)
{
    if (ref != nullptr)
        of(ref).lines.push_back(std::string("notify ") + text);
    return 0;
}

int add(void* ref, IdleFunction function, void* refcon)
{
    of(ref).lines.push_back("add " + std::to_string(function(1, nullptr, refcon)));
    return 5;
}

class Published : public HostTest
{
protected:
    A_Err publish(const char* name, A_long internalVersion, const void* table)
    {
        A_Err error = errNone;
        inHook(
            [&](Client& client)
            {
                void* none = nullptr;
                void* ref = nullptr;
                error =
                    client.Call(suitesSuite, 2, 2, none, none, name, A_long{1}, internalVersion, table, &ref);
                EXPECT_EQ(ref != nullptr, error == errNone);
            });
        return error;
    }

    Calls calls;
    PanelWords panel{&calls, open, refresh, notify};
    IdleWords idle{&calls, add};
};

TEST_F(Published, ATableIsHandedOutAndCounted)
{
    EXPECT_EQ(publish("Vortan Panel Suite v1", 1, &panel), errNone);
    EXPECT_THAT(host.CallTexts(SuiteTraffic::leftOut),
                ElementsAre("Suites 2 AddSuite(null, null, \"Vortan Panel Suite v1\", 1, 1, table)"));
    inHook(
        [&](Client& client)
        {
            const void* table = nullptr;
            EXPECT_EQ(client.Acquire("Vortan Panel Suite v1", 1, &table), errNone);
            EXPECT_EQ(table, &panel);
            EXPECT_EQ(host.SuiteCount("Vortan Panel Suite v1", 1), 1);
            EXPECT_EQ(client.Acquire("Vortan Panel Suite v1", 2, &table), 0x53214664);
            EXPECT_EQ(client.Release("Vortan Panel Suite v1", 1), errNone);
        });
}

TEST_F(Published, ADuplicateNameAndVersionIsRefused)
{
    EXPECT_EQ(publish("Vortan Panel Suite v1", 1, &panel), errNone);
    EXPECT_EQ(publish("Vortan Panel Suite v1", 1, &idle), 0x53457869);
    EXPECT_EQ(publish("PF AE App Suite", 1, &idle), errNone); // Version 1, and the host's is 6.
    EXPECT_THAT(FindingsOf(host), ElementsAre("duplicate-suite in Suites 2 AddSuite(null, null, "
                                              "\"Vortan Panel Suite v1\", 1, 1, table)"));
}

TEST_F(Published, ABadInternalVersionIsRefused) { EXPECT_EQ(publish("Some Suite", 0, &panel), 0x53495673); }

TEST_F(Published, SiblingsCallThroughTheTables)
{
    (void)publish("Vortan Panel Suite v1", 1, &panel);
    (void)publish("Vortan Idle Suite v1", 1, &idle);
    Sibling sibling(host);
    EXPECT_EQ(sibling.OpenPanel(Force::ifNotUp), 0);
    EXPECT_EQ(sibling.OpenPanel(Force::always), 0);
    EXPECT_EQ(sibling.RefreshPanel(), 0);
    EXPECT_EQ(sibling.NotifyPanel("Hello"), 0);
    EXPECT_EQ(sibling.NotifyNobody("Hello"), 0);
    int refcon = 42;
    const IdleFunction giveRefcon = [](int, void*, void* value) { return *static_cast<int*>(value); };
    EXPECT_EQ(sibling.QueueIdleFunction(giveRefcon, &refcon), 5);
    EXPECT_THAT(calls.lines, ElementsAre("open 0", "open 1", "refresh", "notify Hello", "add 42"));
    EXPECT_EQ(host.SuiteCount("Vortan Panel Suite v1", 1), 0);
}

TEST_F(Published, ASiblingWithoutTheSuiteGetsAnException)
{
    host.RunInHook([&] { EXPECT_THROW(Sibling(host).RefreshPanel(), std::runtime_error); });
}

TEST_F(Published, ThrowingFunctionsReachTheSiblingSuiteReleased)
{
    panel.refresh = [](void*) -> int { throw 13; };
    (void)publish("Vortan Panel Suite v1", 1, &panel);
    host.RunInHook([&] { EXPECT_THROW(Sibling(host).RefreshPanel(), int); });
    EXPECT_EQ(host.SuiteCount("Vortan Panel Suite v1", 1), 0);
}
} // namespace
} // namespace standin
