// The part in front of a user: everything that a mouse and a keyboard do in the panel.

#include "tests/soak/Soak.h"

#include "standin/check/PanelScene.h"
#include "standin/host/core/HostParts.h"
#include "standin/host/project/ProjectFile.h"

#include <X11/Xlib.h>
#include <algorithm>
#include <chrono>

namespace standin
{
using namespace check;
using namespace script;
using namespace user;

namespace
{
constexpr int leastRounds = 6;
/// Five seconds at thirty passes each. Work that is too short for six rounds of that has less.
constexpr long long mostPassesBetweenEdits = 150;
/// JUCE lets go of the picture that it paints a window in when three seconds have passed without painting.
constexpr auto untilPictureIsGone = std::chrono::seconds(4);
/// The panel's, which is made anew, two for each drag and two for the menu.
constexpr int juceWindowsOfARound = 7;

/// All windows below one, whether they are to be seen or not.
int windowsBelow(Display* display, Window window)
{
    Window root = 0;
    Window parent = 0;
    Window* children = nullptr;
    unsigned count = 0;
    if (XQueryTree(display, window, &root, &parent, &children, &count) == 0)
        return 0;
    int all = static_cast<int>(count);
    for (unsigned i = 0; i < count; ++i)
        all += windowsBelow(display, children[i]);
    if (children != nullptr)
        (void)XFree(children);
    return all;
}

const std::vector<std::string>& edits()
{
    static const std::vector<std::string> all{
        R"(click row "lamp")",
        "press Return",
        R"(type "torch")",
        "press Return",
        R"(click box of "disc")",
        R"(drag row "disc" above "torch")",
        R"(drag row "torch" into "Group 1")",
        R"(choose "Dots" from "Add Renderer")",
        R"(click row "disc")",
        "press Delete",
        R"(select layer "Other")",
        R"(click row "shake")",
        R"(click box of "shake")",
        R"(select layer "Solid 1")",
        R"(rename "mast" to "pole")",
        R"(duplicate "lens")",
        "a sibling refreshes the panel",
        R"(a sibling notifies "Saved")",
        "undo",
        "redo",
        "cover the panel",
        "open the panel",
        "close the panel", // Its view goes, and comes anew.
        "open the panel",
    };
    return all;
}

class WorkSoak
{
public:
    explicit WorkSoak(const SoakPlan& soakPlan)
        : plan(soakPlan),
          trial(
              plan.bundleFile, 1, [](const std::string&) {}, [] {}),
          scene(trial, options()),
          display(XOpenDisplay(nullptr))
    {
        ExpectKeptFindings(scene.host());
        scene.AddFourObjects();
        const int other = scene.host().AddLayer(scene.composition, "Other");
        const int shake = scene.host().AddEffect(other, "QVK VORTEFF Jitter", "shake");
        scene.host().State().FindEffect(shake)->customName = "shake";
        scene.OpenPanel();
        saved = ProjectOf(scene.host());
    }
    ~WorkSoak() { (void)XCloseDisplay(display); }
    WorkSoak(const WorkSoak&) = delete;
    WorkSoak& operator=(const WorkSoak&) = delete;

    SoakResult Run();

private:
    static HostOptions options()
    {
        HostOptions chosen;
        chosen.closedPanel = ClosedPanel::destroysView;
        return chosen;
    }

    void idle(long long passes);
    void round();
    long long passesBetweenEdits() const;

    SoakPlan plan;
    Trial trial;
    PanelScene scene;
    Display* display;
    ProjectFile saved;
    SoakResult result;
};

long long WorkSoak::passesBetweenEdits() const
{
    const auto ofShortWork = plan.passes / (leastRounds * static_cast<long long>(edits().size()));
    return std::clamp(ofShortWork, 1LL, mostPassesBetweenEdits);
}

void WorkSoak::idle(long long passes)
{
    for (long long i = 0; i < passes; ++i)
    {
        (void)scene.host().RunIdle();
        scene.host().ClearTrace();
    }
    result.passes += passes;
}

void WorkSoak::round()
{
    for (const std::string& line : edits())
    {
        scene.Do(line);
        ++result.edits;
        idle(passesBetweenEdits());
    }
    MakeLeak(plan.leak, scene.host(), display);
    ReplaceProject(scene.host(), saved);
    PartsOf(scene.host()).project.lastLabels.clear();
    scene.host().ClearViewLog();
    scene.Settle();
    scene.session.Forget();
    scene.ForgetDrawnTexts();
    result.findings += TakeUnexpected(scene.host());
    WaitFor(untilPictureIsGone, [this] { idle(1); });
    PartsOf(scene.host()).sensors.trace.ClearWithRoom();
    const int roundsDone = static_cast<int>(result.looks.size()) + 1;
    Holdings held = HoldingsOf(scene.host(), roundsDone * juceWindowsOfARound);
    held.windows = windowsBelow(display, DefaultRootWindow(display));
    result.looks.push_back(held);
}

SoakResult WorkSoak::Run()
{
    const auto passesOfARound = static_cast<long long>(edits().size()) * passesBetweenEdits();
    const auto rounds = std::max<long long>(leastRounds, plan.passes / passesOfARound);
    result.looks.reserve(static_cast<std::size_t>(rounds));
    for (long long i = 0; i < rounds; ++i)
        round();
    scene.session.End();
    result.findings += TakeUnexpected(scene.host());
    return std::move(result);
}
} // namespace

SoakResult SoakWork(const SoakPlan& plan) { return WorkSoak(plan).Run(); }
} // namespace standin
