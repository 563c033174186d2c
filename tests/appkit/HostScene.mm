#import "tests/appkit/HostScene.h"

#import "tests/appkit/InstalledMonitors.h"
#include "tests/appkit/VirtualScreen.h"

#include <stdexcept>
#include <utility>

namespace
{
std::vector<standin::Announcement> announcements;
}

// The tree is not in this program.
void AnnounceTreeEvent(void* view, KeyboardOwner owner)
{
    NSView* const told = static_cast<NSView*>(view);
    const bool isRecording = [told isKindOfClass:[RecordingView class]];
    announcements.push_back({view, owner, isRecording ? static_cast<RecordingView*>(told)->keys.size() : 0});
}

@implementation RecordingView

- (void)mouseDown:(NSEvent*)event
{
    clicks.push_back(event);
    if (onClick)
        onClick();
}

- (void)keyDown:(NSEvent*)event
{
    keys.push_back(event);
}

@end

namespace standin
{
void StartApplication()
{
    static bool started = false;
    if (started)
        return;
    OpenVirtualScreen();
    [NSAutoreleasePool new];
    [NSApplication sharedApplication];
    started = true;
}

HostScene::HostScene()
{
    StartApplication();
    window = [[NSWindow alloc] initWithContentRect:NSMakeRect(100, 200, 400, 300)
                                         styleMask:0
                                           backing:NSBackingStoreBuffered
                                             defer:NO];
    [window setReleasedWhenClosed:NO];
    container = [[RecordingView alloc] initWithFrame:NSMakeRect(50, 40, 200, 150)];
    juceView = [[RecordingView alloc] initWithFrame:[container bounds]];
    surface = [[SurfaceView alloc] initWithFrame:[container bounds]];
    [container addSubview:juceView];
    [[window contentView] addSubview:container];
}

HostScene::~HostScene()
{
    RemoveSurface();
    [window close];
    [surface release];
    [juceView release];
    [container release];
    [window release];
}

void HostScene::AddSurface() { [juceView addSubview:surface]; }

void HostScene::RemoveSurface() { [surface removeFromSuperview]; }

void HostScene::BecomeKeyWindow()
{
    [window orderFront:nil];
    [window becomeKeyWindow];
    if (![window isKeyWindow])
        throw std::runtime_error("the window does not become the key window");
}

void HostScene::ResignKeyWindow()
{
    [window resignKeyWindow];
    if ([window isKeyWindow])
        throw std::runtime_error("the window stays the key window");
}

NSEvent* HostScene::Click(NSPoint inWindow) { return ClickThatTells(inWindow, inWindow); }

NSEvent* HostScene::ClickThatTells(NSPoint toldInWindow, NSPoint pointerInWindow)
{
    const NSPoint onScreen = [window convertBaseToScreen:pointerInWindow];
    MovePointer(static_cast<int>(onScreen.x), screenHeight - static_cast<int>(onScreen.y));
    lastEvent = [NSEvent mouseEventWithType:NSLeftMouseDown
                                   location:toldInWindow
                              modifierFlags:0
                                  timestamp:0
                               windowNumber:[window windowNumber]
                                    context:[window graphicsContext]
                                eventNumber:0
                                 clickCount:1
                                   pressure:1];
    return PassThroughMonitors(lastEvent);
}

NSEvent* HostScene::ClickInside() { return Click(NSMakePoint(150, 100)); }

NSEvent* HostScene::ClickOutside() { return Click(NSMakePoint(300, 250)); }

std::vector<Announcement> TakeAnnouncements() { return std::exchange(announcements, {}); }

NSEvent* MakeKeyPress(const HostScene& scene, const Key& key)
{
    return [NSEvent keyEventWithType:NSKeyDown
                            location:NSZeroPoint
                       modifierFlags:key.modifierFlags
                           timestamp:0
                        windowNumber:[scene.window windowNumber]
                             context:[scene.window graphicsContext]
                          characters:key.characters
         charactersIgnoringModifiers:key.charactersIgnoringModifiers
                           isARepeat:NO
                             keyCode:key.keyCode];
}
} // namespace standin
