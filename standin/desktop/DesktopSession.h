#pragma once
// The desktop as a session: a scenario is played on it as on a bare window, with real mouse and key events in
// the desktop's own windows as well. All on the main thread: a pass delivers the program's messages until its
// timer has made the host idle.

#include "standin/desktop/views/DesktopWindow.h"
#include "standin/script/Phrase.h"
#include "standin/user/Session.h"

namespace standin::desktop
{
class DesktopSession : public user::Session
{
public:
    DesktopSession(Workbench& bench, DesktopWindow& window, X11Containers& containers);
    ~DesktopSession() override;

    void Idle() override;
    user::Area PanelArea() const override;
    user::Place HostPlace() const override;
    /// The dock has its own size: throws std::runtime_error.
    void ResizePanel(int width, int height) override;
    const Bundle& TheBundle() const override { return bench.TheBundle(); }
    /// The program's own end quits the host.
    void End() override {}

    // The desktop's own windows. What does not come about throws std::runtime_error.
    user::Place PlaceIn(const char* componentId, user::Place place) const;
    /// Chooses from the menu bar.
    void Choose(const std::string& menu, const std::string& entry);
    /// Types into a text field once it has the keyboard, until it shows the text.
    void TypeInto(const char* fieldId, const std::string& text);
    /// Waits until the keyboard is somewhere: a menu that closes hands it back in its own time.
    void AwaitKeyboard();

private:
    void collect() override {} // It is heard as it happens.
    bool hasKeyboard();
    void require(const std::function<bool()>& condition, const std::string& otherwise);
    juce::Component& component(const char* id) const;

    Workbench& bench;
    DesktopWindow& window;
    X11Containers& containers;
};

/// What the user does in the desktop's windows in place of what a phrase does to a bare host, by its pattern.
std::map<std::string, script::Act> ActsInWindows(DesktopSession& session);
} // namespace standin::desktop
