#pragma once
// The built bundle in a plain X11 host: the stand-in calls its hooks, a user's hands are on mouse and
// keyboard, and no toolkit is near. The layer has three objects, so the panel shows the rows "Layer", "a",
// "b" and "c" below its toolbar.

#include "standin/host/bundle/Bundle.h"
#include "standin/host/core/Host.h"
#include "standin/user/User.h"
#include "tests/support/KeptBlocks.h"
#include "tests/support/OutputOf.h"
#include "tests/x11/support/PlainHost.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace standin
{
using namespace std::chrono_literals;

class PanelInHost : public testing::Test, protected user::User
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

    void Idle() override;
    /// Idles until nothing has changed on the screen for a while.
    void Settle();

    // Places.
    user::Area PanelArea() const override { return window.ContainerOnScreen(); }
    static user::Place Row(int index)
    {
        return {PlainHost::left + 70, PlainHost::top + 88 + 20 * index + 10};
    }
    static user::Place Button(int index) { return {PlainHost::left + 40, PlainHost::top + 15 + 16 * index}; }
    static user::Place PanelBackground() { return {PlainHost::left + 300, PlainHost::top + 30}; }
    static user::Place HostArea() { return {PlainHost::left + 460, PlainHost::top + 200}; }
    static user::Place Desktop() { return {20, 560}; }

    /// Clicks and idles until the panel has the keyboard.
    void ClickInto(user::Place);
    /// Presses a row and moves it upwards by two.
    void StartDrag(int row) { User::StartDrag(Row(row), Row(row - 2)); }

    bool PanelHasFocus();
    bool HostHasFocus() { return hands.focusedWindow() == window.Frame(); }
    std::string Stack() { return host.StackText(layer); }

    /// That of the button "Add Geometry".
    void OpenGeometryMenu() { (void)OpenMenu(Button(0)); }
    bool IsMenuOpen() { return !hands.popUps().empty(); }
    /// The n-th entry of the open menu, from 0.
    static user::Place MenuEntry(int index);

    /// What `action` writes to standard output, with what the passes after it write until this text has come.
    std::string OutputUntil(const std::string& awaited, const std::function<void()>& action);

    /// Idles until the host has got so many keys, and expects them to be these and no more.
    void ExpectKeys(const std::vector<std::string>& keys);

    PlainHost window;
    Host host;
    Bundle bundle;
    int layer = 0;

private:
    std::unique_ptr<KeptBlocks> keptBlocks;
    int createdByHand = 0; ///< Panels whose create hook the test has called itself.
    bool isDead = false;
};
} // namespace standin
