#pragma once
// The desktop without its windows: a host with the family installed, a bundle, and everything that the
// windows show and the user can do. Used by the windows, by the player of scenarios and by tests.

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "standin/desktop/model/CallLog.h"
#include "standin/desktop/model/Designer.h"
#include "standin/desktop/model/DockState.h"
#include "standin/desktop/model/IdleMeter.h"
#include "standin/desktop/model/MessageLog.h"
#include "standin/host/bundle/Bundle.h"
#include "standin/host/core/Host.h"
#include "standin/host/family/Sibling.h"
#include "standin/process/CapturedOutput.h"

namespace standin::desktop
{
class Workbench
{
public:
    /// `containers` outlives the object.
    explicit Workbench(ContainerProvider& containers);
    Workbench(const Workbench&) = delete;
    Workbench& operator=(const Workbench&) = delete;

    /// Throws std::runtime_error, in words for a user.
    void LoadBundle(const std::string& file);

    /// Puts the effect of a module among the installed ones. Throws std::runtime_error, in words for a user.
    void InstallEffect(const std::string& file);

    /// From now on this hears of what the user does, outside the panel; null for nobody.
    void RecordWith(script::ActionRecord* one);

    /// Hears each host call and each line that the bundle prints; may be empty.
    std::function<void(const std::string&)> onCall;
    std::function<void(const std::string&)> onPrinted;

    Host& TheHost() { return host; }
    const Bundle& TheBundle() const { return *bundle; }
    Designer& User() { return designer; }
    DockState& TheDock() { return dock; }
    MessageLog& Messages() { return messages; }
    CallLog& Calls() { return calls; }
    process::CapturedOutput& Printed() { return printed; }

    /// One idle of the host, at this time in seconds. The host does not idle while the user holds a mouse
    /// button down in its own windows.
    void Idle(double now, IdleMode mode = IdleMode::normal);
    /// Files what has been said and called since the last time under this heading. Every action of the user
    /// that may reach the bundle is followed by it.
    void Collect(const std::string& origin);

    // The status bar.
    int IdlesPerSecond(double now) const { return meter.PerSecond(now); }
    /// All passes so far, with those in which the host did not idle.
    std::size_t Passes() const { return passes; }
    std::size_t CallsInLastPass() const { return callsInLastPass; }
    std::size_t Findings() const { return findings; }

    // Files. Failures are told in the messages; false for one.
    bool Open(const std::string& path);
    bool Save(const std::string& path);

    /// The keyboard has gone into the panel.
    void PanelGotFocus();

    // The Window menu: its entries by way of the update hooks.
    std::vector<MenuItem> WindowMenu();
    void ChooseFromWindowMenu(const std::string& name);

    // The Siblings menu: what an effect of the family may ask for.
    void SiblingOpensPanel(Force force);
    void SiblingRefreshes();
    void SiblingNotifies(const std::string& text);
    /// Queues so many functions; each notes that it ran.
    void SiblingQueues(int count);

    /// The end of the host: death hooks, containers, suite balance. Gives the report of what was found that
    /// should not be; empty if all was well.
    std::string Quit();

private:
    template <class Call>
    void asSibling(const char* what, Call call);
    void takeFindings();
    void say(const std::string& pattern, const std::vector<std::string>& blanks = {}) const;
    static int noteQueued(int pluginId, void* basicSuite, void* refcon);

    // The lines come first and go last: the host's end prints as well.
    process::CapturedOutput printed;
    MessageLog messages;
    Host host;
    std::unique_ptr<Bundle> bundle;
    Designer designer{host};
    DockState dock{host};
    script::ActionRecord* record = nullptr;
    CallLog calls;
    IdleMeter meter;
    std::size_t passes = 0;
    std::size_t callsInLastPass = 0;
    std::size_t alertsTaken = 0;
    std::size_t findings = 0;
    int queuedSoFar = 0;
};
} // namespace standin::desktop
