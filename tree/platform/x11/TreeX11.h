#pragma once
// What a platform without views of its own needs of the tree in order to host it in an X11 window: JUCE's
// connection to the server and what waits on it, the widget's window, its keys. No JUCE type stands here, and
// of X11 only two names.
// Everything is called on the host's main thread. After JuceGlobalShutDown there is no connection, and
// nothing here does anything. A null widget does nothing.

#include "tree/Tree.h"

#include <memory>

struct _XDisplay; ///< Xlib's Display.
union _XEvent;    ///< Xlib's XEvent.

/// JUCE's connection to the X server; null without one. The panel's platform uses it too, so that all events
/// arrive in one order.
_XDisplay* GetTreeDisplay();

// ---- Events

/// From now on JUCE reads nothing from its connection: it learns of the window events that are given to
/// DeliverTreeEvent, one at a time, and of no others. The caller reads the connection instead.
void KeepTreeEvents();

/// Hands one event to JUCE, which has dealt with it when this returns. KeepTreeEvents must have been called.
void DeliverTreeEvent(const _XEvent&);

/// Whether JUCE has timers or messages to run.
bool AreTreeMessagesWaiting();

/// Runs JUCE's timers and messages: a bounded number of rounds.
void RunTreeMessages();

// ---- The window

/// The X11 `Window` of the widget; 0 while it is not on the desktop.
unsigned long GetTreeWindow(ValueTreesDemo*);

/// From now on JUCE takes it for granted that the widget's window is not minimised, and does not ask the
/// server each time: one that lies in a container never is.
void NoteTreeIsEmbedded(ValueTreesDemo*);

/// Whether an X11 `Window` is one of JUCE's: the widget's, a menu's, a drag image's.
bool IsTreeWindow(unsigned long window);

/// In pixels of the screen, whatever scale JUCE draws at. A negative size counts as 0.
void ResizeTree(ValueTreesDemo*, int width, int height);

/// Takes the widget off the desktop, for instance because its window has died. It lives on without one.
void RemoveTreeFromDesktop(ValueTreesDemo*);

// ---- Keys, menus and the mouse

enum class KeyUse
{
    used,
    unused
};

/// Hands a key press or release to the widget. A press goes to the open menu if there is one, to the picture
/// of a drag, to the rename editor while it has the focus, and to the tree view in all other cases. Unused
/// is a key that none of them consumed, one that JUCE does not know, a modifier, and every release.
KeyUse HandleTreeKey(ValueTreesDemo*, const _XEvent&);

/// Closes the widget's menus; nothing is chosen.
void DismissTreeMenus();

/// Whether JUCE believes that a mouse button is held down. It learns of a release from its windows alone.
bool IsTreeButtonDown();

/// Lets go of the mouse without a release. A drag ends and drops nothing.
void ReleaseTreeButtons(ValueTreesDemo*);

// ---- What lives with a widget

/// Something of the platform that is let go when its widget is deleted or gets another attachment.
class TreeAttachment
{
public:
    virtual ~TreeAttachment() = default;

    /// The widget has no more to do with the attachment: it has gone, and its window with it, or it has been
    /// given another one. Whoever still holds the attachment keeps it alive.
    virtual void OnTreeGone() = 0;
};

/// Replaces the widget's attachment; null leaves the widget without one.
void SetTreeAttachment(ValueTreesDemo*, std::shared_ptr<TreeAttachment>);

/// Null if there is none.
std::shared_ptr<TreeAttachment> GetTreeAttachment(ValueTreesDemo*);
