#pragma once
// The stand-in host: the other half of the plug-in interface, with a project in memory, and with a
// sensor in every slot of every table. One host lives at a time, on the thread that made it, since
// the tables of C functions carry no context.
//
//     standin::Host host;
//     standin::InstallFamily(host);
//     const int comp = host.AddComposition("Comp 1");
//     const int layer = host.AddLayer(comp);
//     host.AddEffect(layer, "QVK VORTSRC Lamps", "A");
//     host.User().SelectLayers({layer});
//     auto* basic = static_cast<SPBasicSuite*>(host.BasicSuite());
//     host.RunInHook([&] { /* call product code with host.PluginId(), basic, host.LayerHandle(layer) */ });
//     EXPECT_THAT(host.CallTexts(), ElementsAre("Basic AcquireSuite(...)", ...));
//     EXPECT_EQ(host.FindingsReport(), "");

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <type_traits>
#include <vector>

#include "standin/host/core/Abi.h"
#include "standin/host/core/ContainerProvider.h"
#include "standin/host/core/HostOptions.h"
#include "standin/host/core/MenuBar.h"
#include "standin/host/core/PanelDock.h"
#include "standin/host/core/Plugins.h"
#include "standin/host/core/Project.h"
#include "standin/host/core/ProjectState.h"
#include "standin/host/core/UserActions.h"
#include "standin/host/faults/FaultPlan.h"
#include "standin/host/faults/IdlePlan.h"
#include "standin/host/sensors/CallTrace.h"
#include "standin/host/sensors/FindingLog.h"

namespace standin
{
struct EffectRuntime;
struct HostParts;
struct Sensors;

/// How a hook came back.
struct HookResult
{
    A_Err error = errNone;           ///< What the hook returned; errGeneric if something was thrown.
    std::optional<int> thrownNumber; ///< The integer that left the hook, if one did.
    std::string thrown;              ///< In words, whatever left the hook; empty if nothing did.
};

/// A plug-in whose entry point was called.
struct LoadedPlugin
{
    A_long id = 0;
    void* globalRefcon = nullptr;
    HookResult result;
};

enum class IdleMode
{
    normal,  ///< One idle pass.
    starved, ///< The user holds a mouse button down: no hook is called.
    burst    ///< HostOptions::burstLength passes.
};

class Host
{
public:
    /// Throws std::logic_error while another host lives, which gets the finding "nested-host".
    explicit Host(HostOptions options = {});
    ~Host();
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;

    /// The host that the tables work on, or null.
    static Host* Current();

    /// The seven-slot table, for a cast to the product's SPBasicSuite*. Lives as long as the program.
    void* BasicSuite();
    /// An id that the host has handed out, for tests that call product functions without an entry
    /// point: 7. Plug-ins that are loaded get 8, 9 and so on.
    A_long PluginId() const;
    HostOptions& Options();

    // Building a project. No undo steps, no trace.

    /// The first composition becomes the front one, with the timeline active.
    int AddComposition(const std::string& name);
    int AddFootage(const std::string& name);
    int AddFolder(const std::string& name);
    /// Layer ids count from 1, item ids from 101, effect ids from 1.
    int AddLayer(int compId, const std::string& name = "Layer");
    A_long Install(InstalledEffect effect);
    /// Puts an effect at the end of the stack as if it had been there since the project was opened:
    /// with an identity if its behaviour makes one. Gives the instance's id.
    int AddEffect(int layerId, const std::string& matchName, const std::string& label = "");

    // Looking at the project, and changing it behind everybody's back.

    ProjectState& State();
    /// The effect with this label. Throws std::logic_error if there is none.
    EffectInstance& Effect(const std::string& label);
    /// The labels from the top of the stack down, with a blank between: "A B C".
    std::string StackText(int layerId) const;
    /// The custom name, else the default name of the installed effect.
    std::string NameOf(const std::string& label);
    const std::vector<InstalledEffect>& InstalledEffects() const;
    const InstalledEffect* FindInstalled(A_long key) const;
    /// The user has not installed this effect. Throws std::logic_error if it is not there.
    void Uninstall(const std::string& matchName);
    /// The first with this match name, or null.
    const InstalledEffect* FindInstalled(const std::string& matchName) const;
    /// Whether the effect is twirled open in the host's windows.
    bool IsOpen(const std::string& label);
    const ViewEvents& ViewLog() const;
    void ClearViewLog();
    EffectRuntime& RuntimeOf(int effectId);
    /// Where identities come from. The default counts: 01010101-0101-0101-0101-010100000001 and so on.
    void SetIdentitySource(std::function<Identity()> source);
    Identity MakeIdentity();

    // Handles for the arguments of product functions; good until the layer or item is gone, and not
    // to be disposed of. A null pointer stands for id 0.
    void* LayerHandle(int layerId);
    void* ItemHandle(int itemId);
    /// References that have to be disposed of, as the suites hand them out, but not in the trace.
    void* EffectReference(const std::string& label);
    void* StreamReference(const std::string& label, A_long parameter);
    void* GroupStreamReference(const std::string& label);

    // The user.
    UserActions& User();
    bool Undo();
    bool Redo();
    /// The names of what can be undone, the oldest first; "" for a nameless step.
    std::vector<std::string> UndoNames() const;
    /// The names of what can be redone, the next first.
    std::vector<std::string> RedoNames() const;
    /// The project goes on without a history.
    void ForgetHistory();
    /// Of the hook that runs: the host closes what a hook has left open when it returns.
    int OpenUndoGroups() const;
    /// How often the host has closed an undo group that a hook had left open, other than by a fault.
    int UndoGroupsLeftOpen() const;

    // Hooks and plug-ins.

    /// Runs `body` as the host runs a hook: suite calls are allowed, what is thrown is caught and
    /// reported, and afterwards leaked references and open undo groups are reported. A body that
    /// returns a number returns the hook's error with it.
    template <class Body>
    HookResult RunInHook(Body body)
    {
        return runHook(Where::hook, wrap(body));
    }
    /// The same, where hooks may be registered: for tests that build what an entry point builds.
    template <class Body>
    HookResult RunInEntryPoint(Body body)
    {
        return runHook(Where::entryPoint, wrap(body));
    }
    /// Calls an entry point under a new plug-in id. The function is the plug-in's own type; it is
    /// only called with the arguments of an entry point.
    template <class Function>
    LoadedPlugin Load(Function* entry)
    {
        return loadEntry(reinterpret_cast<EntryPoint>(entry));
    }
    /// The first result that was not well, else a well one. Nothing happens after Quit.
    HookResult RunIdle(IdleMode mode = IdleMode::normal);
    /// Turns the items off and runs the update menu hooks.
    HookResult UpdateMenus(WindowType active = WindowType::timeline);
    /// Opens the menu, that is UpdateMenus, and chooses an item. False if it is missing or off.
    bool ChooseMenuItem(const std::string& name);
    /// A modal dialog of the host. While one is open no menu item can be chosen.
    void OpenDialog();
    void CloseDialog();
    /// A key has reached the host: it looks whether the key stands for a menu item.
    HookResult PressKey();
    /// Runs a command as the host does for a menu item or AEGP_DoCommand. True if the host or a hook took it.
    bool RunCommand(A_long command);
    /// Death hooks, then the containers, then the suite balance. No hook is called afterwards.
    void Quit();

    /// A table under this name, as if a plug-in had published it.
    void Publish(const std::string& name, A_long version, const void* table);
    /// No hook is called any more, as if no plug-in had registered one.
    void ForgetHooks();

    const std::vector<MenuItem>& MenuItems() const;
    const std::vector<Alert>& Alerts() const;
    std::vector<std::string> AlertTexts() const;
    /// The panel that a plug-in has registered, or null.
    const Panel* FindPanel(const std::string& matchName) const;
    /// What a user does with tabs: opening, bringing to the front, covering with another, closing.
    /// Calls the create hook where a view is needed.
    HookResult SetPanelState(const std::string& matchName, PanelState state);
    /// Opens one more panel of this name beside the one that there is, with a view of its own.
    HookResult OpenAnotherPanel(const std::string& matchName);
    void SetContainerProvider(ContainerProvider* provider);
    void SetBackgroundColour(PF_App_Color colour);

    // Sensors.

    CallTrace& Trace();
    /// The lines of all calls since the last ClearTrace.
    std::vector<std::string> CallTexts(SuiteTraffic traffic = SuiteTraffic::included) const;
    void ClearTrace();
    FaultPlan& Faults();
    /// Inside which calls the host idles.
    IdlePlan& Idles();

    FindingLog& Findings();
    std::vector<Finding> TakeFindings();
    /// The same by their ids, sorted.
    std::vector<std::string> TakeFindingIds();
    /// See FindingLog::Expect.
    ExpectedFinding& Expect(const std::string& id, const std::string& function, const std::string& reason);
    /// Unexpected and missing findings, a line each; empty when all is well.
    std::string FindingsReport() const;
    /// Acquires minus releases. 0 for a suite that was never acquired.
    int SuiteCount(const std::string& name, A_long version) const;
    /// A finding for each suite that is still held.
    void CheckSuiteBalance();
    /// A finding for each block of the host's memory that was not given back. The host takes it back now.
    void CheckMemoryBalance();
    /// References that were handed out and are not disposed of yet. Those of a hook are gone when it returns,
    /// disposed of or not.
    int LiveReferences() const;
    /// How many references hooks had not disposed of when they returned.
    int LeakedReferences() const;

    // What the host is made of, to look at. It changes by the functions above.
    const Project& ProjectView() const;
    const Plugins& PluginsView() const;
    const Sensors& SensorsView() const;

private:
    enum class Where
    {
        hook,
        entryPoint
    };

    template <class Body>
    static std::function<A_Err()> wrap(Body& body)
    {
        return [&body]() -> A_Err
        {
            if constexpr (std::is_convertible_v<std::invoke_result_t<Body>, A_Err>)
                return static_cast<A_Err>(body());
            else
                return body(), errNone;
        };
    }
    HookResult runHook(Where where, const std::function<A_Err()>& body);
    LoadedPlugin loadEntry(EntryPoint entry);

    /// For the host's own files; HostParts.h declares it.
    friend HostParts& PartsOf(Host& host);

    std::unique_ptr<HostParts> parts;
};
} // namespace standin
