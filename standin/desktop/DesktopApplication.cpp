#include "standin/desktop/DesktopApplication.h"

#include "standin/desktop/DesktopSession.h"
#include "standin/host/project/ProjectFile.h"
#include "standin/process/ExitCodes.h"
#include "standin/script/Player.h"
#include "standin/script/Stage.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>

namespace standin::desktop
{
namespace
{
DesktopArguments nextArguments;
const juce::Rectangle<int> usualBounds{60, 40, 1320, 820};

class RecordingError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

bool isThere(const std::string& path)
{
    return juce::File::getCurrentWorkingDirectory().getChildFile(juce::String(path)).exists();
}
} // namespace

void DesktopApplication::Use(DesktopArguments used) { nextArguments = std::move(used); }

DesktopApplication::DesktopApplication() : arguments(nextArguments) {}

DesktopApplication::~DesktopApplication() = default;

std::string DesktopApplication::bundleFile() const
{
    if (!arguments.bundle.empty())
        return arguments.bundle;
    const auto program = juce::File::getSpecialLocation(juce::File::currentExecutableFile);
    return program.getSiblingFile("VortanObjectPanel.so").getFullPathName().toStdString();
}

void DesktopApplication::fail(int exitCode, const std::string& sentence)
{
    std::fprintf(stderr, "standin-desktop: %s\n", sentence.c_str());
    setApplicationReturnValue(exitCode);
    quit();
}

void DesktopApplication::initialise(const juce::String&)
{
    try
    {
        containers = std::make_unique<X11Containers>();
    }
    catch (const std::runtime_error&)
    {
        return fail(exit_code::noDisplay, "there is no display; --play has a screen of its own");
    }
    try
    {
        open();
    }
    catch (const RecordingError& error)
    {
        fail(exit_code::noRecording, error.what());
    }
    catch (const script::ScenarioError& error)
    {
        fail(isThere(arguments.scenario) ? exit_code::badInput : exit_code::noFile, error.what());
    }
    catch (const ProjectFileError& error)
    {
        fail(isThere(arguments.project) ? exit_code::badInput : exit_code::noFile, error.what());
    }
    catch (const std::runtime_error& error)
    {
        const auto& effects = arguments.effects;
        const bool areThere = isThere(bundleFile()) && std::all_of(effects.begin(), effects.end(), &isThere);
        fail(areThere ? exit_code::noBundle : exit_code::noFile, error.what());
    }
}

void DesktopApplication::open()
{
    std::vector<script::Step> scenario;
    if (!arguments.scenario.empty())
        scenario = script::ReadScenario(arguments.scenario);
    bench = std::make_unique<Workbench>(*containers);
    for (const std::string& effect : arguments.effects)
        bench->InstallEffect(effect);
    bench->LoadBundle(bundleFile());
    if (arguments.project.empty())
    {
        Host& host = bench->TheHost();
        host.User().SelectLayers({host.AddLayer(host.AddComposition("Comp 1"), "Layer 1")});
    }
    else
        OpenProject(bench->TheHost(), arguments.project);
    if (arguments.record)
        beginRecording(*arguments.record); // Ahead of the window: a file that cannot be written ends it here.
    look = std::make_unique<theme::Look>();
    juce::LookAndFeel::setDefaultLookAndFeel(look.get());
    juce::Desktop::getInstance().setGlobalScaleFactor(static_cast<float>(arguments.scale));
    window = std::make_unique<DesktopWindow>(*bench, *containers,
                                             scenario.empty() ? usualBounds : usualBounds.withPosition(0, 0));
    if (!arguments.project.empty())
        window->View().SetProjectFile(
            juce::File::getCurrentWorkingDirectory().getChildFile(juce::String(arguments.project)));
    window->View().Refresh();
    if (recording != nullptr)
        window->View().beforeIdle = [this] { panelRecording->Follow(); };
    bench->TheDock().ShowPanel();
    if (recording != nullptr)
        bench->RecordWith(recording.get());
    bench->Collect("Create panel");
    if (!scenario.empty())
        play(scenario);
}

/// Here and not in a message, since playing delivers the messages.
void DesktopApplication::play(const std::vector<script::Step>& scenario)
{
    int sentence = 0;
    DesktopSession session(*bench, *window, *containers);
    script::Stage stage(session);
    script::PlayOptions options;
    options.pictures = arguments.pictures;
    options.otherwise = ActsInWindows(session);
    options.onSay = [&](const std::string& text)
    { bench->Printed().WriteToTerminal("\n" + std::to_string(++sentence) + ". " + text + "\n"); };
    std::filesystem::create_directories(options.pictures);
    session.Settle(); // The windows are painted by then.
    const script::Outcome outcome = script::PlayOn(stage, scenario, options);
    std::ofstream(options.pictures + "/calls.txt") << bench->Calls().Text();
    if (!outcome.IsWell())
        return fail(exit_code::failed, outcome.failure);
    bench->Printed().WriteToTerminal("\nThat was all. The pictures and the calls of the bundle are in " +
                                     arguments.pictures + "\n");
    quit();
}

void DesktopApplication::beginRecording(const std::string& file)
{
    try
    {
        recording = std::make_unique<script::ScenarioRecording>(bench->TheHost(), file);
        panelRecording = std::make_unique<script::PanelRecording>(bench->TheHost(), *recording,
                                                                  [this]
                                                                  {
                                                                      script::PanelRecording::View view;
                                                                      view.area = containers->AreaOnScreen();
                                                                      view.hasKeyboard =
                                                                          containers->HasFocus();
                                                                      return view;
                                                                  });
    }
    catch (const std::runtime_error& error)
    {
        throw RecordingError(error.what());
    }
    recording->Begin();
    recording->beforeLine = [this]
    {
        panelRecording->Follow();
        panelRecording->Finish();
    };
}

void DesktopApplication::endRecording()
{
    if (recording == nullptr || window == nullptr)
        return;
    window->View().beforeIdle = nullptr;
    panelRecording->Follow();
    panelRecording->Finish();
    recording->beforeLine = nullptr;
    recording->End();
    bench->RecordWith(nullptr);
}

void DesktopApplication::shutdown()
{
    endRecording();
    std::string report;
    if (bench != nullptr)
        report = bench->Quit();
    window.reset();
    bench.reset();
    containers.reset();
    juce::LookAndFeel::setDefaultLookAndFeel(nullptr);
    look.reset();
    if (report.empty())
        return;
    std::fprintf(stderr, "%s", report.c_str());
    setApplicationReturnValue(exit_code::failed);
}

void DesktopApplication::unhandledException(const std::exception* exception, const juce::String&, int)
{
    fail(exit_code::failed, exception != nullptr ? exception->what() : "an unknown exception");
}
} // namespace standin::desktop
