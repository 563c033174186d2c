#import "tests/appkit/HostScene.h"
#import "tests/appkit/InstalledMonitors.h"
#include "tests/appkit/VirtualScreen.h"

#import <GNUstepGUI/GSDisplayServer.h>

#include <X11/keysym.h>
#include <gtest/gtest.h>

namespace standin
{
namespace
{
/// Events that were really clicked and typed, taken from the application's queue and handed first to the
/// monitors and then to the window, as AppKit's event loop does.
class RealInput : public testing::Test
{
protected:
    RealInput()
    {
        scene.BecomeKeyWindow();
        scene.AddSurface();
        // The pointer's window has the keyboard on a screen without a window manager.
        WaitUntilShown([GSCurrentServer() serverDevice]);
        MovePointerTo(NSMakePoint(10, 10));
        DrainQueue();
    }

    void ClickAt(NSPoint inWindow)
    {
        MovePointerTo(inWindow);
        ClickLeftButton();
        Deliver(NSLeftMouseDown);
    }

    /// Types a key and returns what the monitors have let through: the event, or nil.
    NSEvent* Type(unsigned long keysym)
    {
        TapKey(keysym);
        return Deliver(NSKeyDown);
    }

    NSEvent* Deliver(NSEventType type)
    {
        NSEvent* const event = NextEvent(1u << type, 20);
        if (event == nil)
            throw std::runtime_error("the event does not arrive");
        NSEvent* const passedOn = PassThroughMonitors(event);
        if (passedOn != nil && type == NSLeftMouseDown)
            [scene.window sendEvent:passedOn];
        // Giving a window a click may take the key window away from it, without a window manager.
        scene.BecomeKeyWindow();
        return passedOn;
    }

    HostScene scene;

private:
    void MovePointerTo(NSPoint inWindow)
    {
        const NSPoint onScreen = [scene.window convertBaseToScreen:inWindow];
        MovePointer(static_cast<int>(onScreen.x), screenHeight - static_cast<int>(onScreen.y));
    }

    static NSEvent* NextEvent(NSUInteger mask, NSTimeInterval limit)
    {
        return [NSApp nextEventMatchingMask:mask
                                  untilDate:[NSDate dateWithTimeIntervalSinceNow:limit]
                                     inMode:NSDefaultRunLoopMode
                                    dequeue:YES];
    }

    static void DrainQueue()
    {
        while (NextEvent(NSAnyEventMask, 0) != nil)
        {
        }
    }
};

TEST_F(RealInput, BeforeAnyClickGoesToTheHost)
{
    EXPECT_NE(Type(XK_Delete), nil);
    EXPECT_NE(Type(XK_Return), nil);

    EXPECT_TRUE(scene.juceView->keys.empty());
}

TEST_F(RealInput, OfAFirstClickReachesContainerAndPanel)
{
    ClickAt(NSMakePoint(150, 100));

    EXPECT_EQ(scene.container->clicks.size(), 1u);
    EXPECT_EQ(scene.juceView->clicks.size(), 1u);

    ClickAt(NSMakePoint(160, 110));

    EXPECT_EQ(scene.container->clicks.size(), 1u);
    EXPECT_EQ(scene.juceView->clicks.size(), 2u);
}

TEST_F(RealInput, AfterAPanelClickGoesWhereItBelongs)
{
    ClickAt(NSMakePoint(150, 100));

    EXPECT_EQ(Type(XK_Delete), nil);
    EXPECT_EQ(Type(XK_BackSpace), nil);
    EXPECT_EQ(Type(XK_Return), nil);
    EXPECT_EQ(scene.juceView->keys.size(), 3u);

    EXPECT_NE(Type(XK_q), nil);
    EXPECT_NE(Type(XK_Left), nil);
    EXPECT_NE(Type(XK_F5), nil);
    EXPECT_EQ(scene.juceView->keys.size(), 3u);
}

TEST_F(RealInput, AfterAClickElsewhereGoesToTheHost)
{
    ClickAt(NSMakePoint(150, 100));
    ClickAt(NSMakePoint(300, 250));

    EXPECT_NE(Type(XK_Delete), nil);
    EXPECT_NE(Type(XK_Return), nil);

    EXPECT_TRUE(scene.juceView->keys.empty());
}

} // namespace
} // namespace standin
