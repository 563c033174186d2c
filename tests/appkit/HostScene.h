#pragma once
// A host's window as the panel finds it: the container with JUCE's view in it, and the panel's surface in
// that. Container and JUCE's view write down what reaches them.

#import "panel/platform/mac/SurfaceView.h"

#include "tree/TreeKeys.h"

#include <functional>
#include <vector>

/// Keeps every event that it is sent.
@interface RecordingView : NSView
{
@public
    std::vector<NSEvent*> clicks;
    std::vector<NSEvent*> keys;
    /// What else a click sets off; may be empty.
    std::function<void()> onClick;
}
@end

namespace standin
{
/// Makes the application object, once, on a screen of its own.
void StartApplication();

/// The window is at 100, 200 on the screen and measures 400 by 300; the container is at 50, 40 in it and
/// measures 200 by 150. The surface fills JUCE's view, and JUCE's view the container.
struct HostScene
{
    HostScene();
    ~HostScene();
    HostScene(const HostScene&) = delete;
    HostScene& operator=(const HostScene&) = delete;

    void AddSurface();
    void RemoveSurface();
    void BecomeKeyWindow();
    void ResignKeyWindow();

    /// A left click at a place of the window: moves the pointer there, and hands the event to the
    /// monitors. Returns what they hand back.
    NSEvent* Click(NSPoint inWindow);
    /// The same, while the event tells of another place than the pointer is at.
    NSEvent* ClickThatTells(NSPoint toldInWindow, NSPoint pointerInWindow);
    NSEvent* ClickInside();
    NSEvent* ClickOutside();

    NSWindow* window;
    RecordingView* container;
    RecordingView* juceView;
    SurfaceView* surface;

    /// The latest event.
    NSEvent* lastEvent = nil;
};

/// What the tree has been told of an event.
struct Announcement
{
    void* view;
    KeyboardOwner owner;
    std::size_t keysBefore; ///< How many keys JUCE's view had been sent by then.

    bool operator==(const Announcement& other) const
    {
        return view == other.view && owner == other.owner && keysBefore == other.keysBefore;
    }
};

/// Those since the last call.
std::vector<Announcement> TakeAnnouncements();

/// The parts of a key press that matter.
struct Key
{
    NSString* characters;
    NSString* charactersIgnoringModifiers;
    unsigned short keyCode;
    NSUInteger modifierFlags;
};

NSEvent* MakeKeyPress(const HostScene&, const Key&);
} // namespace standin
