#include "panel/platform/PanelatorUI_Plat.h"

#import "panel/platform/mac/SurfaceView.h"
#include "tests/appkit/Catching.h"
#import "tests/appkit/HostScene.h"
#include "tests/panel/PanelFakes.h"
#include "tree/Tree.h"

#include <gtest/gtest.h>

#include <memory>
#include <type_traits>

namespace standin
{
namespace
{
using Calls = std::vector<std::string>;

static_assert(sizeof(PanelatorUI_Plat) == sizeof(PanelatorUI), "the platform's side adds no members");
static_assert(!std::is_polymorphic_v<PanelatorUI_Plat>, "neither class has virtual operations");

/// A host's container, and the widget's part in attaching to it: a view of the widget's own in the
/// container, with the panel's surface in it.
class PanelatorUIPlat : public testing::Test
{
protected:
    PanelatorUIPlat()
    {
        StartApplication();
        container = [[NSView alloc] initWithFrame:NSMakeRect(50, 40, 200.9, 150.7)];
        TreeLog().onAddToDesktop = [this](void* embeddedView, void* nativeParent)
        {
            embedded = static_cast<NSView*>(embeddedView);
            parent = static_cast<NSView*>(nativeParent);
            widgetsView = [[NSView alloc] initWithFrame:[parent bounds]];
            [widgetsView addSubview:embedded];
            [parent addSubview:widgetsView];
        };
    }

    ~PanelatorUIPlat() override
    {
        DeleteTreeWidget(tree);
        DeleteTreeStateTable(stateTable);
        [widgetsView release];
        [container release];
    }

    std::unique_ptr<PanelatorUI_Plat> Make(NSView* view)
    {
        return std::make_unique<PanelatorUI_Plat>(&fakes.basicSuite, nullptr, view, nullptr, &stateTable,
                                                  &tree);
    }

    PanelFakes fakes;
    ValueTreesDemo* tree = nullptr;
    _TreeStateTable_Internal* stateTable = nullptr;
    NSView* container = nil;
    NSView* widgetsView = nil;
    NSView* embedded = nil;
    NSView* parent = nil;
};

TEST_F(PanelatorUIPlat, FillsThePanelBeforeItAttachesIt)
{
    const auto panel = Make(container);

    EXPECT_NE(tree, nullptr);
    EXPECT_NE(stateTable, nullptr);
    EXPECT_EQ(fakes.TakeCalls(),
              (Calls{"AcquireSuite PF AE App Suite 6", "AcquireSuite AEGP Workspace Panel Suite 1",
                     "CreateTreeWidget(false)", "CreateTreeStateTable()", "FindEffectKeys QVK VORTEFF",
                     "FindEffectKeys QVK VORTSRC", "FindEffectKeys QVK VORTREN", "GetObjectsPopupString src",
                     "GetObjectsPopupString eff", "GetObjectsPopupString ren",
                     "GetEffectKeyFromMatchName QVK VORTAN TWO", "AcquireSuite AEGP Utility Suite 7",
                     "AEGP_GetDriverPluginInitFuncVersion 0.0", "AcquireSuite PF AE App Suite 6",
                     "PF_AppGetBgColor", "SetBGColor(0, 0, 0, 1)", "ReleaseSuite AEGP Utility Suite 7",
                     "ReleaseSuite PF AE App Suite 6", "addToDesktop(200, 150)"}));
}

TEST_F(PanelatorUIPlat, EmbedsASurfaceWithTheContainersFrame)
{
    const auto panel = Make(container);

    EXPECT_TRUE([embedded isMemberOfClass:[SurfaceView class]]);
    EXPECT_TRUE(NSEqualRects([embedded frame], NSMakeRect(50, 40, 200.9, 150.7)));
    EXPECT_EQ(parent, container);
}

TEST_F(PanelatorUIPlat, TakesItsSizeInWholePixels)
{
    [container setBounds:NSMakeRect(0, 0, 99.99, 33.5)];

    const auto panel = Make(container);

    EXPECT_EQ(fakes.TakeCalls().back(), "addToDesktop(99, 33)");
    EXPECT_TRUE(NSEqualRects([embedded frame], NSMakeRect(50, 40, 200.9, 150.7)));
}

TEST_F(PanelatorUIPlat, ReadsTheBoundsBeforeTheFormerWidgetGoes)
{
    tree = CreateTreeWidget(false);
    TreeLog().sink = [this](const std::string& call)
    {
        if (call == "Tree DeleteTreeWidget(tree)")
            [container setFrame:NSMakeRect(0, 0, 10, 10)];
    };

    const auto panel = Make(container);

    EXPECT_EQ(fakes.TakeCalls().back(), "addToDesktop(200, 150)");
    EXPECT_TRUE(NSEqualRects([embedded frame], NSMakeRect(0, 0, 10, 10)));
}

TEST_F(PanelatorUIPlat, LeavesTheSurfaceToTheWidget)
{
    const auto panel = Make(container);

    EXPECT_EQ([embedded retainCount], 1u);
}

TEST_F(PanelatorUIPlat, MakesTheContainersViewsFollowItsSize)
{
    NSView* const hostsOwn = [[[NSView alloc] initWithFrame:NSMakeRect(0, 0, 20, 10)] autorelease];
    [container addSubview:hostsOwn];
    [container setFrameSize:NSMakeSize(200, 150)];

    const auto panel = Make(container);

    EXPECT_EQ([hostsOwn autoresizingMask], 18u);
    EXPECT_EQ([widgetsView autoresizingMask], 18u);
    EXPECT_EQ([embedded autoresizingMask], 0u);

    [container setFrameSize:NSMakeSize(300, 250)];
    EXPECT_TRUE(NSEqualSizes([widgetsView frame].size, NSMakeSize(300, 250)));
}

TEST_F(PanelatorUIPlat, WithoutAViewHasNoSizeAndParent)
{
    const auto panel = Make(nil);

    EXPECT_EQ(fakes.TakeCalls().back(), "addToDesktop(0, 0)");
    EXPECT_EQ(parent, nil);
    EXPECT_TRUE(NSEqualRects([embedded frame], NSZeroRect));
    EXPECT_NE(tree, nullptr);
}

TEST_F(PanelatorUIPlat, ReplacesTheFormerWidgetAndTable)
{
    tree = CreateTreeWidget(false);
    tree->hasRoot = true;
    stateTable = CreateTreeStateTable();
    (void)fakes.TakeCalls();

    const auto panel = Make(container);

    const Calls calls = fakes.TakeCalls();
    EXPECT_EQ(calls.at(2), "DeleteTreeWidget(tree)");
    EXPECT_EQ(calls.at(3), "DeleteTreeStateTable(table)");
    EXPECT_FALSE(tree->hasRoot) << "another widget";
    EXPECT_NE(tree, nullptr);
    EXPECT_NE(stateTable, nullptr);
}

TEST_F(PanelatorUIPlat, WithoutThePanelSuiteThrows13UsingNothing)
{
    ValueTreesDemo* const former = CreateTreeWidget(false);
    tree = former;
    (void)fakes.TakeCalls();
    fakes.missingSuites = {"AEGP Workspace Panel Suite"};

    EXPECT_EQ(CatchInteger([this] { (void)Make(container); }), 13);

    EXPECT_EQ(tree, former);
    EXPECT_EQ(fakes.TakeCalls(),
              (Calls{"AcquireSuite PF AE App Suite 6", "AcquireSuite AEGP Workspace Panel Suite 1",
                     "ReleaseSuite PF AE App Suite 6"}));
}

TEST_F(PanelatorUIPlat, WithoutTheUtilitySuiteThrows516AndReleases)
{
    fakes.missingSuites = {"AEGP Utility Suite"};

    EXPECT_EQ(CatchInteger([this] { (void)Make(container); }), 516);

    EXPECT_NE(tree, nullptr);
    EXPECT_NE(stateTable, nullptr);
    EXPECT_EQ(embedded, nil);
    const Calls calls = fakes.TakeCalls();
    EXPECT_EQ(calls.at(calls.size() - 2), "ReleaseSuite AEGP Workspace Panel Suite 1");
    EXPECT_EQ(calls.back(), "ReleaseSuite PF AE App Suite 6");
}

TEST_F(PanelatorUIPlat, WithFewerNamesThrowsOutOfRangeUnattached)
{
    fakes.keys = {{"QVK VORTREN", {31}}};

    EXPECT_TRUE(ThrowsOutOfRange([this] { (void)Make(container); }));

    EXPECT_NE(tree, nullptr);
    EXPECT_EQ(embedded, nil);
}

TEST_F(PanelatorUIPlat, GivesItsSuitesBackWhenItIsDeleted)
{
    auto panel = Make(container);
    (void)fakes.TakeCalls();

    panel.reset();

    EXPECT_EQ(fakes.TakeCalls(),
              (Calls{"ReleaseSuite AEGP Workspace Panel Suite 1", "ReleaseSuite PF AE App Suite 6"}));
}

} // namespace
} // namespace standin
