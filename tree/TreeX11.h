#pragma once
// What a platform without views of its own needs of the tree in order to host it in an X11 window: the
// delivery of its events, its window, its keys. No JUCE type and no X11 type stands here.
// Everything is called on the host's main thread, between JuceGlobalInit and JuceGlobalShutDown.

#include "tree/Tree.h"

#include <memory>

/// What waits on JUCE's connection to the X server, taken off it so that it can be delivered in the order
/// of the server's time together with what came in elsewhere. What is left at the end waits on.
class TreeEvents
{
public:
    /// Reads everything that the server has sent so far.
    TreeEvents();
    ~TreeEvents();
    TreeEvents(const TreeEvents&) = delete;
    TreeEvents& operator=(const TreeEvents&) = delete;

    /// Whether a window of JUCE got a mouse press at exactly this server time.
    bool HasPressAt(unsigned long serverTime) const;

    /// Delivers the window events up to and with this server time.
    void DeliverUntil(unsigned long serverTime);

    /// Delivers the other window events, and then timers and messages: a bounded number of them.
    void DeliverAll();

private:
    struct Queue;
    std::unique_ptr<Queue> queue;
};

/// JUCE's connection to the X server, a `Display*`; null without one.
void* GetTreeDisplay();

/// Whether an X11 `Window` is one of JUCE's: the widget's, a menu's, a drag image's.
bool IsTreeWindow(unsigned long window);

/// The X11 `Window` of the widget; 0 while it is not on the desktop.
unsigned long GetTreeWindow(ValueTreesDemo*);

/// In pixels; a negative size counts as 0.
void ResizeTree(ValueTreesDemo*, int width, int height);

/// Takes the widget off the desktop, for instance because its window has died. It lives on without one.
void RemoveTreeFromDesktop(ValueTreesDemo*);

/// From now on the widget's window selects no key events of its own. They reach the widget through
/// HandleTreeKey alone, so that a pointer over the window takes no key from anybody.
void DetachTreeKeys(ValueTreesDemo*);

enum class KeyUse
{
    used,
    unused
};

/// Hands a key press or release, an `XEvent*` of any connection, to the widget. The tree view has the
/// keyboard unless a rename editor has. A key that nothing in the widget consumed is unused; so is one that
/// JUCE does not know, a modifier, and every release. Everything that waits on JUCE's connection is delivered
/// behind it, so the caller has taken it off before.
KeyUse HandleTreeKey(ValueTreesDemo*, void* keyEvent);

/// Closes the widget's menus; nothing is chosen.
void DismissTreeMenus();

/// Something of the platform that lives and dies with a widget.
class TreeAttachment
{
public:
    virtual ~TreeAttachment() = default;
};

/// Replaces the widget's attachment.
void SetTreeAttachment(ValueTreesDemo*, std::shared_ptr<TreeAttachment>);

/// Null if there is none, or no widget.
std::shared_ptr<TreeAttachment> GetTreeAttachment(ValueTreesDemo*);
