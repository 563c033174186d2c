#pragma once
// All of the desktop's window: menus, three columns, logs, status bar; and the timer that makes the host
// idle.

#include "standin/desktop/model/Workbench.h"
#include "standin/desktop/views/DockView.h"
#include "standin/desktop/views/EffectControls.h"
#include "standin/desktop/views/Field.h"
#include "standin/desktop/views/LogsView.h"
#include "standin/desktop/views/Menus.h"
#include "standin/desktop/views/ProjectView.h"
#include "standin/desktop/views/Prompt.h"

namespace standin::desktop
{
class MainView : public juce::Component, public Field::Owner, private juce::Timer
{
public:
    MainView(Workbench& owner, X11Containers& containers);
    ~MainView() override;

    /// The project that "Save Project" writes to.
    void SetProjectFile(const juce::File& file);
    /// Runs before each idle.
    std::function<void()> beforeIdle;
    /// Shows what has changed. The timer calls it after each idle.
    void Refresh();

    bool keyPressed(const juce::KeyPress&) override;
    void focusGained(FocusChangeType) override;
    void NoteField(Field* one) override { field = one; }
    void paint(juce::Graphics&) override;
    void resized() override;

private:
    enum class Files
    {
        open,
        save
    };

    void timerCallback() override;
    void followFocus();
    void tendWindow();
    /// Runs the action once the window has the keyboard again, which a closing menu hands back in its own
    /// time.
    void whenFocused(std::function<void()> action) { waiting = std::move(action); }
    void paintStatus(juce::Graphics&, juce::Rectangle<int> area) const;
    juce::String statusText() const;
    Menus::Windows actions();
    void openProject();
    void saveProject();
    void saveProjectAs();
    void saveCalls();
    void notify();
    void chooseFile(const juce::String& title, const juce::File& start, Files what,
                    std::function<void(const juce::File&)> chosen);

    Workbench& bench;
    X11Containers& containers;
    script::Shown shown;
    Menus menus;
    juce::MenuBarComponent menuBar;
    ProjectView project;
    EffectControls effects;
    DockView dock;
    LogsView logs;
    Prompt prompt;
    std::unique_ptr<juce::FileChooser> chooser;
    juce::File projectFile;
    juce::String status;
    std::function<void()> waiting;
    juce::Component::SafePointer<Field> field; ///< What the user types into, or did last.
    int passesDeaf = 0; ///< With the keyboard on the window, and no component that it goes to.
    bool panelHadFocus = false;
    double soonestPass = 0;
};
} // namespace standin::desktop
