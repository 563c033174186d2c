#pragma once
// The program as JUCE runs it: bundle, project, window, and the end of it all.

#include "standin/desktop/Arguments.h"
#include "standin/desktop/views/DesktopWindow.h"
#include "standin/script/Phrase.h"
#include "standin/script/record/PanelRecording.h"

namespace standin::desktop
{
class DesktopApplication : public juce::JUCEApplicationBase
{
public:
    /// What the next instance is made with; JUCE makes it without arguments.
    static void Use(DesktopArguments arguments);

    DesktopApplication();
    ~DesktopApplication() override;

    const juce::String getApplicationName() override { return "standin-desktop"; }
    const juce::String getApplicationVersion() override { return "1.0.0"; }
    bool moreThanOneInstanceAllowed() override { return true; }
    void initialise(const juce::String&) override;
    void shutdown() override;
    void anotherInstanceStarted(const juce::String&) override {}
    void systemRequestedQuit() override { quit(); }
    void suspended() override {}
    void resumed() override {}
    void unhandledException(const std::exception*, const juce::String&, int) override;

private:
    void open();
    void play(const std::vector<script::Step>& scenario);
    void beginRecording(const std::string& file);
    void endRecording();
    std::string bundleFile() const;
    void fail(int exitCode, const std::string& sentence);

    DesktopArguments arguments;
    std::unique_ptr<theme::Look> look;
    std::unique_ptr<X11Containers> containers;
    std::unique_ptr<Workbench> bench;
    std::unique_ptr<DesktopWindow> window;
    std::unique_ptr<script::ScenarioRecording> recording;
    std::unique_ptr<script::PanelRecording> panelRecording;
};
} // namespace standin::desktop
