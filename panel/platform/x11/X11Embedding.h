#pragma once
// Lives with a widget in a host's X11 container: follows the container's size, takes the keyboard for the
// tree while the user works in the panel, and gives it back. It has a connection of its own to the X server;
// what it selects there leaves the host's own event selection as it is.

#include "panel/platform/x11/HostWindow.h"
#include "panel/platform/x11/XConnection.h"
#include "tree/TreeX11.h"

#include <array>
#include <vector>

class X11Embedding : public TreeAttachment
{
public:
    /// Attaches an embedding to a widget that is on the desktop inside `container`. Does nothing if the X
    /// server cannot be reached.
    static void Attach(ValueTreesDemo* tree, Window container);

    /// `connection` is open.
    X11Embedding(ValueTreesDemo* tree, Window container, std::unique_ptr<XConnection> connection);

    /// Gives the keyboard back if the panel holds it.
    ~X11Embedding() override;

    /// Delivers all input that has come since the last call, the panel's and JUCE's, in the order of the
    /// server's time.
    void Update();

private:
    struct Input
    {
        enum class Kind
        {
            key,
            pressOutside
        };
        Kind kind;
        Time time;
        XEvent event; ///< Of a key.
    };

    void selectContainerEvents();
    void selectRawPresses();
    std::vector<Input> takeInput(const TreeEvents& treeEvents);
    void takeEvent(XEvent& event, const TreeEvents& treeEvents, std::vector<Input>& input);
    void takeRawPress(XEvent& event, const TreeEvents& treeEvents, std::vector<Input>& input);
    void followContainer();
    void handleKey(XEvent& event);
    void giveKeyboardUp();
    void examineFocus();
    void holdKeyboard(bool hold);

    ValueTreesDemo* tree;
    Window container;
    std::unique_ptr<XConnection> connection;
    Display* display;
    Window panelWindow;
    HostWindow host;
    int rawPressOpcode = -1; ///< Of the extension that tells of presses anywhere; -1 without it.
    bool holdsKeyboard = false;
    bool hasContainer = true;
    bool hasNewSize = false;
    int newWidth = 0;
    int newHeight = 0;
    std::array<bool, 256> usedKeys{}; ///< By key code: pressed, and used by the panel.
};
