#import "tests/appkit/HostScene.h"
#import "tests/appkit/InstalledMonitors.h"
#include "tests/support/OutputOf.h"

#include <gtest/gtest.h>

#include <objc/runtime.h>

namespace
{
int deallocatedSurfaces = 0;
}

@interface CountedSurface : SurfaceView
@end

@implementation CountedSurface
- (void)dealloc
{
    ++deallocatedSurfaces;
    [super dealloc];
}
@end

namespace standin
{
namespace
{
const Key deleteKey = {@"\x7f", @"\x7f", 51, 0};

int callsOfSuperclass = 0;

/// Replaces NSView's own method while it lives.
class CountedSuperclass
{
public:
    CountedSuperclass()
        : method(class_getInstanceMethod([NSView class], @selector(viewWillMoveToWindow:))),
          original(method_setImplementation(method, reinterpret_cast<IMP>(count)))
    {
        callsOfSuperclass = 0;
    }

    ~CountedSuperclass() { (void)method_setImplementation(method, original); }

    CountedSuperclass(const CountedSuperclass&) = delete;
    CountedSuperclass& operator=(const CountedSuperclass&) = delete;

private:
    static void count(id, SEL, NSWindow*) { ++callsOfSuperclass; }

    Method method;
    IMP original;
};

TEST(SurfaceView, AsAFreshViewHasNoMonitor)
{
    const HostScene scene;

    EXPECT_EQ(CountOfMonitors(), 0u);
    EXPECT_TRUE(NSEqualRects([scene.surface frame], NSMakeRect(0, 0, 200, 150)));
}

TEST(SurfaceView, AcceptsAndGivesUpFirstResponder)
{
    const HostScene scene;

    EXPECT_EQ([scene.surface acceptsFirstResponder], YES);
    EXPECT_EQ([scene.surface becomeFirstResponder], YES);
    EXPECT_EQ([scene.surface resignFirstResponder], YES);
}

TEST(SurfaceView, PassesAClickToItsSuperview)
{
    HostScene scene;
    scene.AddSurface();
    NSEvent* const click = [NSEvent mouseEventWithType:NSLeftMouseDown
                                              location:NSMakePoint(150, 100)
                                         modifierFlags:0
                                             timestamp:0
                                          windowNumber:[scene.window windowNumber]
                                               context:[scene.window graphicsContext]
                                           eventNumber:0
                                            clickCount:1
                                              pressure:1];

    [scene.surface mouseDown:click];

    EXPECT_EQ(scene.juceView->clicks, std::vector<NSEvent*>{click});
    EXPECT_TRUE(scene.container->clicks.empty());
}

TEST(SurfaceView, ClaimsKeyEquivalentsAndOnlyPrints)
{
    HostScene scene;
    scene.AddSurface();

    for (NSString* character in @[ @"z", @"x", @"\x7f", @"\r" ])
    {
        NSEvent* const key = MakeKeyPress(scene, {character, character, 6, NSCommandKeyMask});
        EXPECT_EQ(OutputOf([&] { EXPECT_EQ([scene.surface performKeyEquivalent:key], YES); }),
                  "Key Equivalent called\n");
    }
    EXPECT_TRUE(scene.juceView->keys.empty());
}

TEST(SurfaceView, InstallsClickAndKeyMonitorInAWindow)
{
    HostScene scene;

    EXPECT_EQ(OutputOf([&] { scene.AddSurface(); }), "View Will move to Winodw\nAdding Event Monitor\n");
    ASSERT_EQ(CountOfMonitors(), 1u);
    EXPECT_EQ(MaskOfOnlyMonitor(), 1026u);
}

TEST(SurfaceView, LeavingItsWindowRemovesTheMonitor)
{
    HostScene scene;
    scene.AddSurface();

    EXPECT_EQ(OutputOf([&] { scene.RemoveSurface(); }), "View Will move to Winodw\nNew Window Empty\n");
    EXPECT_EQ(CountOfMonitors(), 0u);
}

TEST(SurfaceView, WithoutAMonitorStillReportsLosingItsWindow)
{
    const HostScene scene;

    EXPECT_EQ(OutputOf([&] { [scene.surface viewWillMoveToWindow:nil]; }),
              "View Will move to Winodw\nNew Window Empty\n");
    EXPECT_EQ(CountOfMonitors(), 0u);
}

TEST(SurfaceView, MovingDirectlyToAnotherWindowKeepsItsMonitor)
{
    HostScene scene;
    scene.AddSurface();
    const HostScene other;

    EXPECT_EQ(OutputOf([&] { [scene.surface viewWillMoveToWindow:other.window]; }),
              "View Will move to Winodw\n");
    EXPECT_EQ(CountOfMonitors(), 1u);
}

TEST(SurfaceView, ReturningToAWindowInstallsAnotherMonitor)
{
    HostScene scene;
    scene.AddSurface();
    scene.RemoveSurface();

    EXPECT_EQ(OutputOf([&] { scene.AddSurface(); }), "View Will move to Winodw\nAdding Event Monitor\n");
    EXPECT_EQ(CountOfMonitors(), 1u);
}

TEST(SurfaceView, DoesNotTellItsSuperclassOfAMove)
{
    const HostScene scene;
    const CountedSuperclass counted;

    [scene.surface viewWillMoveToWindow:scene.window];
    [scene.surface viewWillMoveToWindow:nil];

    EXPECT_EQ(callsOfSuperclass, 0);
}

TEST(SurfaceView, IsRetainedByItsMonitor)
{
    const HostScene scene;
    const NSUInteger before = [scene.surface retainCount];

    [scene.surface viewWillMoveToWindow:scene.window];
    EXPECT_EQ([scene.surface retainCount], before + 1);
    [scene.surface viewWillMoveToWindow:nil];
    EXPECT_EQ([scene.surface retainCount], before);
}

/// A scene whose window is the key window, with the surface in place.
class SurfaceViewFocus : public testing::Test
{
protected:
    SurfaceViewFocus()
    {
        scene.BecomeKeyWindow();
        scene.AddSurface();
    }

    /// What a click prints. It goes on to its window, whatever the surface makes of it.
    std::string LinesOf(NSEvent* (HostScene::*click)())
    {
        NSEvent* passedOn = nil;
        const std::string lines = OutputOf([&] { passedOn = (scene.*click)(); });
        EXPECT_EQ(passedOn, scene.lastEvent);
        return lines;
    }

    /// Whether the panel holds the keyboard: whether it takes a Delete.
    bool TakesDelete() { return PassThroughMonitors(MakeKeyPress(scene, deleteKey)) == nil; }

    HostScene scene;
};

TEST_F(SurfaceViewFocus, IsNotThereBeforeTheFirstClick)
{
    EXPECT_EQ(OutputOf([&] { EXPECT_FALSE(TakesDelete()); }), "");
    EXPECT_TRUE(scene.juceView->keys.empty());
}

TEST_F(SurfaceViewFocus, ComesWithTheFirstClickAndForwardsIt)
{
    EXPECT_EQ(LinesOf(&HostScene::ClickInside), "Click happened in View\n");
    EXPECT_EQ(scene.container->clicks, std::vector<NSEvent*>{scene.lastEvent});
    EXPECT_TRUE(scene.juceView->clicks.empty());
    EXPECT_TRUE(TakesDelete());
}

TEST_F(SurfaceViewFocus, DoesNotForwardFurtherClicks)
{
    (void)scene.ClickInside();

    EXPECT_EQ(LinesOf(&HostScene::ClickInside), "Click happened in View\n");
    EXPECT_EQ(scene.container->clicks.size(), 1u);
    EXPECT_TRUE(TakesDelete());
}

TEST_F(SurfaceViewFocus, GoesWithAClickElsewhereInTheWindow)
{
    (void)scene.ClickInside();

    EXPECT_EQ(LinesOf(&HostScene::ClickOutside), "");
    EXPECT_EQ(scene.container->clicks.size(), 1u);
    EXPECT_FALSE(TakesDelete());
}

TEST_F(SurfaceViewFocus, ComesBackWithAnotherForwardedClick)
{
    (void)scene.ClickInside();
    (void)scene.ClickOutside();

    (void)scene.ClickInside();

    EXPECT_EQ(scene.container->clicks.size(), 2u);
    EXPECT_EQ(scene.container->clicks.back(), scene.lastEvent);
    EXPECT_TRUE(TakesDelete());
}

TEST_F(SurfaceViewFocus, FollowsTheViewsEdges)
{
    (void)scene.Click(NSMakePoint(51, 41));
    EXPECT_TRUE(TakesDelete());
    (void)scene.Click(NSMakePoint(48, 41));
    EXPECT_FALSE(TakesDelete());
    (void)scene.Click(NSMakePoint(248, 188));
    EXPECT_TRUE(TakesDelete());
    (void)scene.Click(NSMakePoint(248, 192));
    EXPECT_FALSE(TakesDelete());
}

TEST_F(SurfaceViewFocus, FollowsThePointerAndNotTheEvent)
{
    const NSPoint inside = NSMakePoint(150, 100);
    const NSPoint outside = NSMakePoint(300, 250);

    (void)scene.ClickThatTells(outside, inside);
    EXPECT_TRUE(TakesDelete());
    (void)scene.ClickThatTells(inside, outside);
    EXPECT_FALSE(TakesDelete());
}

TEST_F(SurfaceViewFocus, FollowsAViewAwayFromItsSuperviewsCorner)
{
    [scene.surface setFrame:NSMakeRect(120, 90, 60, 40)];

    (void)scene.Click(NSMakePoint(180, 140));
    EXPECT_TRUE(TakesDelete());
    // As far from the view's own corner as the view is from its superview's.
    (void)scene.Click(NSMakePoint(300, 230));
    EXPECT_FALSE(TakesDelete());
}

TEST_F(SurfaceViewFocus, GoesWithAnyClickWhileHidden)
{
    (void)scene.ClickInside();
    [scene.surface setHidden:YES];

    EXPECT_EQ(LinesOf(&HostScene::ClickInside), "View is Hidden\n");
    EXPECT_EQ(scene.container->clicks.size(), 1u);
    EXPECT_FALSE(TakesDelete());
}

TEST_F(SurfaceViewFocus, ComesWithAClickInAHiddenContainer)
{
    [scene.container setHidden:YES];

    EXPECT_EQ(OutputOf([&] { (void)scene.ClickInside(); }), "Click happened in View\n");
    EXPECT_TRUE(TakesDelete());
}

TEST_F(SurfaceViewFocus, IgnoresClicksWithoutTheKeyWindow)
{
    scene.ResignKeyWindow();

    EXPECT_EQ(LinesOf(&HostScene::ClickInside), "");
    EXPECT_TRUE(scene.container->clicks.empty());
    scene.BecomeKeyWindow();
    EXPECT_FALSE(TakesDelete());
}

TEST_F(SurfaceViewFocus, OutlastsALossOfTheKeyWindow)
{
    (void)scene.ClickInside();
    scene.ResignKeyWindow();

    EXPECT_EQ(OutputOf([&] { EXPECT_FALSE(TakesDelete()); }), "");
    EXPECT_EQ(OutputOf([&] { (void)scene.ClickOutside(); }), "");

    scene.BecomeKeyWindow();
    EXPECT_TRUE(TakesDelete());
}

TEST_F(SurfaceViewFocus, ComesInAViewWithoutContainer)
{
    scene.RemoveSurface();
    NSView* const topmost = [[scene.window contentView] superview];
    ASSERT_EQ([topmost superview], nil);
    [topmost addSubview:scene.surface];

    NSEvent* const passedOn = scene.ClickInside();

    EXPECT_EQ(passedOn, scene.lastEvent);
    EXPECT_TRUE(TakesDelete());
}

TEST_F(SurfaceViewFocus, KeepsTheViewAliveDuringTheForwardedClick)
{
    NSAutoreleasePool* const aroundTheEvent = [NSAutoreleasePool new];
    CountedSurface* surface = [[CountedSurface alloc] initWithFrame:[scene.container bounds]];
    scene.RemoveSurface();
    [scene.juceView addSubview:surface];
    deallocatedSurfaces = 0;
    scene.container->onClick = [&]
    {
        NSAutoreleasePool* const pool = [NSAutoreleasePool new];
        [surface removeFromSuperview];
        [surface release];
        [pool release];
        EXPECT_EQ(deallocatedSurfaces, 0);
    };

    NSEvent* const passedOn = scene.ClickInside();

    EXPECT_EQ(passedOn, scene.lastEvent);
    EXPECT_EQ(CountOfMonitors(), 0u);
    [aroundTheEvent release];
    EXPECT_EQ(deallocatedSurfaces, 1);
}

} // namespace
} // namespace standin
