#pragma once
// The bundle in a plain host: the stand-in with the family installed, and a bare X window for the panel. One
// session lives at a time, and a process has one bundle.

#include "standin/process/CapturedOutput.h"
#include "standin/user/HostWindow.h"
#include "standin/user/Session.h"

namespace standin::user
{
/// What the X server is.
enum class DisplayChoice
{
    environmentOrOwn, ///< The one that DISPLAY names; an own one, without a screen, if it names none.
    own
};

class WindowSession final : public Session
{
public:
    /// The bundle is not loaded yet. Throws std::runtime_error, in words for a user, if the file is no
    /// bundle, and DisplayMissing if there is no display.
    WindowSession(const std::string& bundleFile, DisplayChoice display);
    ~WindowSession() override;

    void Idle() override;
    Area PanelArea() const override { return window.ContainerOnScreen(); }
    Place HostPlace() const override { return window.EmptyPlace(); }
    void ResizePanel(int width, int height) override { window.Resize(width, height); }
    const Bundle& TheBundle() const override { return bundle; }
    void End() override;
    int TakeErrors() override { return window.TakeErrors(); }

private:
    void collect() override;
    void hearKeys();
    /// The panel is the active window of the host then, or else the one that was active last.
    void pressed(Place at) override;

    HostWindow window;
    Host ownHost;
    Bundle bundle;
    process::CapturedOutput output;
    bool ended = false;
};
} // namespace standin::user
