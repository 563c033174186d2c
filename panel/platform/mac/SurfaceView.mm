#import "panel/platform/mac/SurfaceView.h"

#include "host/PrintLine.h"
#include "tree/TreeKeys.h"

namespace
{
// The numbers of AppKit's enumerators, whose names differ between its releases.
constexpr NSUInteger leftMouseDownType = 1;
constexpr NSUInteger keyDownType = 10;
constexpr NSEventMask monitoredEvents = (1u << leftMouseDownType) | (1u << keyDownType);
constexpr NSUInteger commandFlag = 1u << 20;

constexpr unichar deleteCharacter = 127;
constexpr unsigned short returnKeyCode = 36;
constexpr unsigned short keypadEnterKeyCode = 76;

/// A key that the tree takes together with Command, and the line that tells so.
struct CommandKey
{
    NSString* characters;
    const char* line;
};

bool isDelete(NSEvent* event)
{
    NSString* const characters = [event characters];
    if ([characters length] != 1)
        return false;
    const unichar character = [characters characterAtIndex:0];
    return character == deleteCharacter || character == NSDeleteFunctionKey;
}

bool isReturn(NSEvent* event)
{
    return [event keyCode] == returnKeyCode || [event keyCode] == keypadEnterKeyCode;
}

/// The line for the Command key in question, or null for a key that is not the tree's.
const char* lineForCommandKey(NSEvent* event)
{
    static const CommandKey commandKeys[] = {
        {@"x", "Cmd X Pressed"}, {@"c", "Cmd C Pressed"}, {@"v", "Cmd v Pressed"}, {@"a", "Cmd a Pressed"}};
    // Kept: the effect of Shift stays in these characters, so Command with Shift is the host's.
    NSString* const characters = [event charactersIgnoringModifiers];
    for (const CommandKey& key : commandKeys)
        if ([characters isEqual:key.characters])
            return key.line;
    return nullptr;
}

/// Writes the lines that belong to the key, and tells whether the key is the tree's.
bool isKeyOfTree(NSEvent* event)
{
    if (isDelete(event))
    {
        PrintLine("Delete Key Pressed");
        return true;
    }
    if (isReturn(event))
    {
        PrintLine("Return Key Pressed");
        return true;
    }
    if (([event modifierFlags] & commandFlag) == 0)
        return false;

    PrintLine("Command Key Pressed");
    const char* const line = lineForCommandKey(event);
    if (line != nullptr)
        PrintLine(line);
    return line != nullptr;
}
} // namespace

@interface SurfaceView ()
- (void)installEventMonitor;
- (void)removeEventMonitor;
- (NSEvent*)handleMonitoredEvent:(NSEvent*)event;
- (void)followClick:(NSEvent*)event;
- (NSPoint)pointerInSuperview;
@end

@implementation SurfaceView

- (id)initWithFrame:(NSRect)frame
{
    self = [super initWithFrame:frame];
    if (self != nil)
    {
        _eventFocus = NO;
        _eventMonitor = nil;
    }
    return self;
}

// Kept: the superclass is not called.
- (void)viewWillMoveToWindow:(NSWindow*)newWindow
{
    // Kept: the misspelling.
    PrintLine("View Will move to Winodw");
    if (newWindow == nil)
    {
        [self removeEventMonitor];
        PrintLine("New Window Empty");
    }
    else if (_eventMonitor == nil)
    {
        PrintLine("Adding Event Monitor");
        [self installEventMonitor];
    }
}

- (BOOL)becomeFirstResponder
{
    return YES;
}

- (BOOL)resignFirstResponder
{
    return YES;
}

- (BOOL)acceptsFirstResponder
{
    return YES;
}

- (void)mouseDown:(NSEvent*)event
{
    [super mouseDown:event];
}

// Kept: every key equivalent that comes this far is claimed, and nothing is done with it.
- (BOOL)performKeyEquivalent:(NSEvent*)event
{
    (void)event;
    PrintLine("Key Equivalent called");
    return YES;
}

- (void)installEventMonitor
{
    // The block holds the view until the monitor is removed.
    _eventMonitor = [NSEvent addLocalMonitorForEventsMatchingMask:monitoredEvents
                                                          handler:^NSEvent*(NSEvent* event) {
                                                            return [self handleMonitoredEvent:event];
                                                          }];
}

- (void)removeEventMonitor
{
    if (_eventMonitor == nil)
        return;
    [NSEvent removeMonitor:_eventMonitor];
    _eventMonitor = nil;
}

/// Returns the event to go on with, or nil to keep it from the host.
- (NSEvent*)handleMonitoredEvent:(NSEvent*)event
{
    // What the event sets off may take the panel away, and with it the monitor that holds this view.
    [[self retain] autorelease];

    if (![[self window] isKeyWindow])
        return event;

    const NSUInteger type = static_cast<NSUInteger>([event type]);
    if (type == leftMouseDownType)
        [self followClick:event];
    // JUCE's view holds this one.
    AnnounceTreeEvent([self superview], _eventFocus ? KeyboardOwner::panel : KeyboardOwner::host);
    if (!_eventFocus || type != keyDownType || !isKeyOfTree(event))
        return event;

    [super keyDown:event];
    return nil;
}

/// A click in the view takes the keyboard, a click anywhere else in the window gives it up.
- (void)followClick:(NSEvent*)event
{
    const NSPoint pointer = [self pointerInSuperview];
    // Kept: the view's own flag counts, whatever hides a container of it.
    if ([self isHidden])
    {
        PrintLine("View is Hidden");
        _eventFocus = NO;
    }
    else if ([self hitTest:pointer] != nil)
    {
        PrintLine("Click happened in View");
        if (!_eventFocus)
        {
            _eventFocus = YES;
            // The host's container: the click that gives the panel the keyboard is the host's too.
            [[[self superview] superview] mouseDown:event];
        }
    }
    else
        _eventFocus = NO;
}

- (NSPoint)pointerInSuperview
{
#pragma clang diagnostic push
#pragma clang diagnostic ignored "-Wdeprecated-declarations"
    const NSPoint inWindow = [[self window] convertScreenToBase:[NSEvent mouseLocation]];
#pragma clang diagnostic pop
    return [[self superview] convertPoint:inWindow fromView:nil];
}

@end
