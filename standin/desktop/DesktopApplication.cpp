#include "standin/desktop/DesktopApplication.h"

#include "standin/desktop/Tour.h"
#include "standin/project/ProjectFile.h"

#include <cstdio>

namespace standin
{
namespace
{
DesktopArguments nextArguments;
constexpr int foundSomething = 1;
constexpr int badFile = 3;
constexpr int noDisplay = 4;
const juce::Rectangle<int> usualBounds{60, 40, 1320, 820};
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
        return fail(noDisplay, "there is no display; --tour plays on a screen of its own");
    }
    try
    {
        open();
    }
    catch (const std::runtime_error& error)
    {
        fail(badFile, error.what());
    }
}

void DesktopApplication::open()
{
    bench = std::make_unique<Workbench>(*containers);
    bench->LoadBundle(bundleFile());
    if (arguments.project.empty())
    {
        Host& host = bench->TheHost();
        host.User().SelectLayers({host.AddLayer(host.AddComposition("Comp 1"), "Layer 1")});
    }
    else
        OpenProject(bench->TheHost(), arguments.project);
    look = std::make_unique<theme::Look>();
    juce::LookAndFeel::setDefaultLookAndFeel(look.get());
    juce::Desktop::getInstance().setGlobalScaleFactor(static_cast<float>(arguments.scale));
    window = std::make_unique<DesktopWindow>(*bench, *containers,
                                             arguments.tour ? usualBounds.withPosition(0, 0) : usualBounds);
    if (!arguments.project.empty())
        window->View().SetProjectFile(
            juce::File::getCurrentWorkingDirectory().getChildFile(juce::String(arguments.project)));
    window->View().Refresh();
    bench->TheDock().ShowPanel();
    bench->Collect("Create panel");
    if (arguments.tour)
        tour = std::make_unique<Tour>(*bench, *window, *arguments.tour);
}

void DesktopApplication::shutdown()
{
    tour.reset();
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
    setApplicationReturnValue(foundSomething);
}

void DesktopApplication::unhandledException(const std::exception* exception, const juce::String&, int)
{
    fail(foundSomething, exception != nullptr ? exception->what() : "an unknown exception");
}
} // namespace standin
