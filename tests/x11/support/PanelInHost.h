#pragma once
// The built bundle in a plain X11 host: the stand-in calls its hooks, a user's hands are on mouse and
// keyboard, and no toolkit is near. The layer has three objects, so the panel shows the rows "Layer", "a",
// "b" and "c" below its toolbar.

#include "standin/core/Host.h"
#include "standin/session/Bundle.h"
#include "standin/x11/XTestInput.h"
#include "standin/x11/Xvfb.h"
#include "tests/support/KeptBlocks.h"
#include "tests/x11/support/PlainHost.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace standin
{
/// A place on the screen.
struct Place
{
    int x;
    int y;
};

class PanelInHost : public testing::Test
{
protected:
    explicit PanelInHost(HostOptions options = {});
    ~PanelInHost() override;

    static constexpr const char* panelName = "Vortan Object Panel";

    /// Opens the panel's tab and waits until it is painted.
    void Open();
    /// The create hook once more, with the container as it is or with another view.
    HookResult CreateAgain(void* view);
    /// The create hook as it stands, with the host's function table.
    HookResult CreateWith(void* view, PanelFunctions& functions);
    /// The death hook, once; nothing may be called afterwards.
    void Die();

    // Idle.
    void Idle();
    /// Idles until the condition holds; false if it does not within a generous limit.
    bool IdleUntil(const std::function<bool()>& condition);
    /// Idles for a while: only for showing that something does not happen.
    void IdleFor(int milliseconds);
    /// Idles until nothing has changed on the screen and on the layer for a while.
    void Settle();

    // Places.
    static Place Row(int index) { return {PlainHost::left + 70, PlainHost::top + 88 + 20 * index + 10}; }
    static Place Button(int index) { return {PlainHost::left + 40, PlainHost::top + 15 + 16 * index}; }
    static Place PanelBackground() { return {PlainHost::left + 300, PlainHost::top + 30}; }
    static Place HostArea() { return {PlainHost::left + 460, PlainHost::top + 200}; }
    static Place Desktop() { return {20, 560}; }

    // The user. Nothing idles inside these unless it is said.
    void Point(Place);
    void Press(Place, unsigned button = 1);
    void Click(Place, unsigned button = 1);
    /// And idles until the panel has the keyboard.
    void ClickInto(Place);
    void Type(const std::string& key) { user.key(key); }
    void TypeWith(const std::vector<std::string>& modifiers, const std::string& key);

    bool PanelHasFocus();
    bool HostHasFocus() { return user.focusedWindow() == window.TopWindow(); }
    std::string Stack() { return host.StackText(layer); }

    // Menus.
    /// Clicks the button "Add Geometry" and waits for its menu.
    void OpenMenu();
    bool IsMenuOpen() { return window.ChildrenOfRoot() > rootChildrenBefore; }
    /// The n-th entry of the open menu, from 0.
    Place MenuEntry(int index);

    /// What `action` writes to standard output.
    static std::string OutputOf(const std::function<void()>& action);

    Xvfb server{800, 600};
    XTestInput user;
    PlainHost window;
    Host host;
    Bundle bundle;
    int layer = 0;

private:
    std::unique_ptr<KeptBlocks> keptBlocks;
    int rootChildrenBefore = 0;
    bool isDead = false;
};
} // namespace standin
