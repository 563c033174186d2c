#pragma once
// The panel plug-in, loaded into a stand-in host and with the fake tree for its user interface, and one
// record in which its calls to the host and to the tree stand in the order in which they were made.
//
// The plug-in has the id 8, its menu entry the command 1001; the composition is item 101, the layer is
// layer 1.

#include "panel/Panelator.h"
#include "standin/process/CapturedOutput.h"
#include "tests/support/FakeTree.h"
#include "tests/support/ProductHost.h"

#include <functional>
#include <optional>

namespace standin
{
constexpr const char* PANEL_NAME = "Vortan Object Panel";

/// What one pass did.
struct PassRecord
{
    std::vector<std::string> calls; ///< Lines of the host's trace, and "Tree ..." for the tree's.
    std::string printed;            ///< Standard output.
    HookResult result;
};

class PanelBench
{
public:
    /// Loads the plug-in. There is no panel yet. `arm` may prepare faults for the entry point.
    explicit PanelBench(HostOptions options = {}, const std::function<void(Host&)>& arm = nullptr);
    ~PanelBench();
    PanelBench(const PanelBench&) = delete;
    PanelBench& operator=(const PanelBench&) = delete;

    /// Puts a family effect at the end of the layer's stack, under its label as its name.
    void Add(const std::string& matchName, const std::string& label);
    void Add(int layerId, const std::string& matchName, const std::string& label);
    /// A geometry object A, an effector B and a renderer C.
    void AddThree();

    /// Opens the panel, or brings it back to the front, as the host does without the menu.
    void Show();
    void Hide();
    /// Lets another tab cover the panel.
    void Cover();
    /// Chooses the panel's entry in the Window menu. False if it cannot be chosen.
    bool Choose();
    /// Passes until one has found nothing to do, which must be one of the first four.
    void Settle();
    /// Show and Settle.
    void ShowAndSettle();

    /// One idle of the host.
    PassRecord Pass(SuiteTraffic traffic = SuiteTraffic::leftOut);
    /// The same for anything else that runs hooks or works inside one.
    template <class Body>
    PassRecord Record(SuiteTraffic traffic, Body body)
    {
        startRecording(traffic);
        HookResult result = body();
        return stopRecording(traffic, std::move(result));
    }
    /// Runs `action` inside the `nth` message from now on that the effect gets.
    void ActInMessage(const std::string& label, int nth, std::function<void()> action);
    /// What was printed since the record was started. For behaviours that look from inside a pass.
    std::string PrintedSoFar() const;

    /// The fake tree. Null until the panel was opened.
    ValueTreesDemo* Tree() const { return plugin->tree; }
    /// The names of the tree's objects from the top down, with a blank between.
    std::string TreeText() const;
    /// The object with this name.
    ObjectItem& TreeItem(const std::string& name) const;
    /// What the Delete key does to an object.
    void DeleteInTree(const std::string& name) const;
    /// What a drag does.
    void MoveInTree(const std::string& name, std::size_t place) const;
    void SelectInTree(const std::vector<std::string>& names) const;

    VnPanelRef& Inbox() const { return *plugin->publishedSuite.panelRef; }

    /// Deletes all that the plug-in keeps for the life of the host, so that every suite that is still
    /// held afterwards, and all memory, has leaked. Faults are disarmed, and the host idles inside no
    /// call.
    void Close();

    ProductHost on;
    Host& host = on.host;
    PassRecord loading;          ///< What the entry point did, with the traffic of suites.
    Panelator* plugin = nullptr; ///< Null if the entry point threw, and after Close.

private:
    void startRecording(SuiteTraffic traffic);
    PassRecord stopRecording(SuiteTraffic traffic, HookResult result);
    void moveHostCalls(SuiteTraffic traffic);
    void notePanel();

    std::optional<process::CapturedOutput> printed; ///< While a record is made.
    std::vector<std::string> record;
    std::vector<void*> panels; ///< The panel refcons that the create hook gave.
};
} // namespace standin
