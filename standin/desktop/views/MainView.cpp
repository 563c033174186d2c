#include "standin/desktop/views/MainView.h"

#include <JuceText.h>
#include <JuceWindowEvents.h>

namespace standin::desktop
{
namespace
{
constexpr int idlesPerSecond = 30;
constexpr double pauseAfterPass = 0.01; ///< At the least, in seconds.
constexpr int passesUntilSure = 10;     ///< That the desktop has the keyboard and JUCE does not know.
constexpr int menuHeight = 26;
constexpr int statusHeight = 24;
constexpr int leftWidth = 240;
constexpr int dockWidth = 380;
constexpr int logsHeight = theme::headerHeight + 9 * theme::lineHeight;

double now() { return juce::Time::getMillisecondCounterHiRes() / 1000.0; }
} // namespace

MainView::MainView(Workbench& owner, X11Containers& nativeViews)
    : bench(owner),
      containers(nativeViews),
      menus(owner, actions()),
      menuBar(&menus),
      project(owner),
      effects(owner),
      dock(owner, nativeViews),
      logs(owner)
{
    menuBar.setComponentID("menus");
    setWantsKeyboardFocus(true);
    for (juce::Component* child :
         {static_cast<juce::Component*>(&menuBar), static_cast<juce::Component*>(&project),
          static_cast<juce::Component*>(&effects), static_cast<juce::Component*>(&dock),
          static_cast<juce::Component*>(&logs)})
        addAndMakeVisible(child);
    addChildComponent(prompt);
    startTimerHz(idlesPerSecond);
}

MainView::~MainView() { stopTimer(); }

Menus::Windows MainView::actions()
{
    Menus::Windows windows;
    windows.rename = [this] { whenFocused([this] { effects.RenameSelected(); }); };
    windows.openProject = [this] { openProject(); };
    windows.saveProject = [this] { saveProject(); };
    windows.saveProjectAs = [this] { saveProjectAs(); };
    windows.saveCalls = [this] { saveCalls(); };
    windows.notify = [this] { whenFocused([this] { notify(); }); };
    windows.quit = [] { juce::JUCEApplicationBase::quit(); };
    return windows;
}

void MainView::SetProjectFile(const juce::File& file) { projectFile = file; }

/// After a pass that took long JUCE calls again at once, and once more, and would deliver nothing else: the
/// others get their turn in between. The real host does not idle while the user holds a mouse button down in
/// it.
void MainView::timerCallback()
{
    if (now() < soonestPass)
        return;
    if (beforeIdle)
        beforeIdle();
    followFocus();
    bench.Idle(now(), effects.IsDragging() ? IdleMode::starved : IdleMode::normal);
    tendWindow();
    Refresh();
    soonestPass = now() + pauseAfterPass;
}

/// After the idle, in which the panel fetches a lost focus back for itself.
void MainView::tendWindow()
{
    auto* peer = getPeer();
    if (peer == nullptr)
        return;
    const auto window = reinterpret_cast<unsigned long>(peer->getNativeHandle());
    const bool hasFocus =
        isShowing() && getCurrentlyModalComponent() == nullptr && containers.FetchLostFocus(window);
    passesDeaf = hasFocus && getCurrentlyFocusedComponent() == nullptr ? passesDeaf + 1 : 0;
    // JUCE takes an event that says where the pointer is for the loss of the focus. One that says that the
    // focus has come may be under way, though, and would take it from whoever has it by then.
    if (passesDeaf == passesUntilSure)
        peer->handleFocusGain();
    DeliverJuceWindowEvents();
    if (waiting && getCurrentlyModalComponent() == nullptr && getCurrentlyFocusedComponent() != nullptr)
        std::exchange(waiting, nullptr)();
}

void MainView::focusGained(FocusChangeType cause)
{
    if (cause == focusChangedDirectly && field != nullptr && field->isShowing())
        field->grabKeyboardFocus();
    else
        field = nullptr;
}

void MainView::followFocus()
{
    const bool panelHasFocus = containers.HasFocus();
    if (panelHasFocus && !panelHadFocus)
        bench.PanelGotFocus();
    panelHadFocus = panelHasFocus;
}

void MainView::Refresh()
{
    script::Shown current = script::ShowHost(bench.TheHost());
    if (current != shown)
    {
        shown = std::move(current);
        project.Show(shown);
        effects.Show(shown);
        dock.Show(shown);
    }
    dock.Follow();
    logs.ReadOn();
    const juce::String text = statusText();
    if (text == status)
        return;
    status = text;
    repaint(0, getHeight() - statusHeight, getWidth(), statusHeight);
}

juce::String MainView::statusText() const
{
    return "Idle " + juce::String(bench.IdlesPerSecond(now())).paddedLeft(' ', 2) +
           " / s      Calls in the last pass  " + juce::String(bench.CallsInLastPass());
}

bool MainView::keyPressed(const juce::KeyPress& key)
{
    const bool isUsed = menus.HandleKey(key);
    if (isUsed)
        Refresh();
    return isUsed;
}

void MainView::resized()
{
    auto area = getLocalBounds();
    menuBar.setBounds(area.removeFromTop(menuHeight));
    area.removeFromTop(theme::split);
    area.removeFromBottom(statusHeight + theme::split);
    logs.setBounds(area.removeFromBottom(logsHeight));
    area.removeFromBottom(theme::split);
    project.setBounds(area.removeFromLeft(leftWidth));
    area.removeFromLeft(theme::split);
    dock.setBounds(area.removeFromRight(dockWidth));
    area.removeFromRight(theme::split);
    effects.setBounds(area);
    prompt.setBounds(area.withSizeKeepingCentre(Prompt::width, Prompt::height));
}

void MainView::paint(juce::Graphics& g)
{
    g.fillAll(theme::gap);
    paintStatus(g, getLocalBounds().removeFromBottom(statusHeight));
}

void MainView::paintStatus(juce::Graphics& g, juce::Rectangle<int> area) const
{
    g.setColour(theme::header);
    g.fillRect(area);
    area = area.reduced(theme::margin, 0);
    theme::PaintText(g, projectFile.getFileName(), area, theme::dim, theme::Small(),
                     juce::Justification::centredRight);
    const int width = TextWidth(theme::Small(), status) + 30;
    theme::PaintText(g, status, area, theme::dim, theme::Small());
    const std::size_t findings = bench.Findings();
    const juce::String text =
        findings == 0 ? juce::String("No findings") : "Findings  " + juce::String(findings);
    theme::PaintText(g, text, area.withTrimmedLeft(std::max(width, 260)),
                     findings == 0 ? theme::dim : theme::alarm, theme::Small());
}

void MainView::openProject()
{
    chooseFile("Open Project", projectFile, Files::open,
               [this](const juce::File& file)
               {
                   if (bench.Open(file.getFullPathName().toStdString()))
                       SetProjectFile(file);
               });
}

void MainView::saveProject()
{
    if (projectFile == juce::File())
        return saveProjectAs();
    (void)bench.Save(projectFile.getFullPathName().toStdString());
}

void MainView::saveProjectAs()
{
    chooseFile("Save Project", projectFile, Files::save,
               [this](const juce::File& file)
               {
                   if (bench.Save(file.getFullPathName().toStdString()))
                       SetProjectFile(file);
               });
}

void MainView::saveCalls()
{
    chooseFile("Save Host Calls", juce::File::getCurrentWorkingDirectory().getChildFile("calls.txt"),
               Files::save,
               [this](const juce::File& file)
               {
                   if (!file.replaceWithText(theme::Text(bench.Calls().Text())))
                       bench.Messages().Add(MessageKind::failure,
                                            file.getFullPathName().toStdString() + ": cannot be written");
               });
}

void MainView::chooseFile(const juce::String& title, const juce::File& start, Files what,
                          std::function<void(const juce::File&)> chosen)
{
    using Browser = juce::FileBrowserComponent;
    const int choices = what == Files::open
                            ? Browser::openMode | Browser::canSelectFiles
                            : Browser::saveMode | Browser::canSelectFiles | Browser::warnAboutOverwriting;
    const juce::String pattern = title.contains("Project") ? "*.json" : "*";
    chooser = std::make_unique<juce::FileChooser>(title, start, pattern, false, false, this);
    chooser->launchAsync(choices,
                         [chosen = std::move(chosen)](const juce::FileChooser& done)
                         {
                             if (done.getResult() != juce::File())
                                 chosen(done.getResult());
                         });
}

void MainView::notify()
{
    prompt.Ask("What does the effect want to tell?", "Notify",
               [this](const juce::String& text) { bench.SiblingNotifies(text.toStdString()); });
}
} // namespace standin::desktop
