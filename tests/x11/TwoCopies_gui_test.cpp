// A host that has a copy of JUCE of its own, besides the one in the bundle.

#include "tests/x11/support/PanelInHost.h"

#include <JuceInternals.h>
#include <JuceWindowEvents.h>
#include <juce_gui_basics/juce_gui_basics.h>

using namespace standin;

namespace
{
/// A window of the host's copy with a text field in it, and a timer.
class HostEditor : public juce::Component, private juce::Timer
{
public:
    HostEditor()
    {
        addAndMakeVisible(editor);
        setBounds(600, 300, 180, 60);
        editor.setBounds(getLocalBounds());
        addToDesktop(juce::ComponentPeer::windowIsTemporary);
        setVisible(true);
        startTimer(5);
    }

    juce::TextEditor editor;
    int ticks = 0;

private:
    void timerCallback() override { ++ticks; }
};

class TwoCopies : public PanelInHost
{
protected:
    TwoCopies() : juceOfHost(std::make_unique<juce::ScopedJuceInitialiser_GUI>())
    {
        hostEditor = std::make_unique<HostEditor>();
    }

    ~TwoCopies() override
    {
        hostEditor.reset();
        juceOfHost.reset();
    }

    void pumpHost()
    {
        DeliverJuceWindowEvents();
        for (int i = 0; i < 100 && DispatchJuceMessages(); ++i)
        {
        }
    }

    bool idleBothUntil(const std::function<bool()>& condition)
    {
        return IdleUntil(
            [&]
            {
                pumpHost();
                return condition();
            });
    }

    std::unique_ptr<juce::ScopedJuceInitialiser_GUI> juceOfHost;
    std::unique_ptr<HostEditor> hostEditor;
};
} // namespace

TEST_F(TwoCopies, DoNotMeet)
{
    Open();
    EXPECT_EQ(juce::ComponentPeer::getNumPeers(), 1) << "the panel's window is not the host's";
    EXPECT_EQ(juce::Desktop::getInstance().getNumComponents(), 1);

    EXPECT_TRUE(idleBothUntil([this] { return hands.screen().at(680, 330) != 0; })) << "it is painted";
    Click({680, 330});
    EXPECT_TRUE(idleBothUntil([this] { return hostEditor->editor.hasKeyboardFocus(true); }));
    TypeText("host");
    EXPECT_TRUE(idleBothUntil([this] { return hostEditor->editor.getText() == "host"; }));
    EXPECT_EQ(Stack(), "a b c");

    Click(Row(2));
    EXPECT_TRUE(idleBothUntil([this] { return PanelHasFocus(); }));
    EXPECT_TRUE(idleBothUntil([this] { return !hostEditor->editor.hasKeyboardFocus(true); }));
    PressKey("Delete");
    EXPECT_TRUE(idleBothUntil([this] { return Stack() == "a c"; }));
    EXPECT_EQ(hostEditor->editor.getText(), "host");
}

TEST_F(TwoCopies, TheHostsContinuesAfterTheBundles)
{
    Open();
    pumpHost();
    Die();
    const int before = hostEditor->ticks;
    EXPECT_TRUE(idleBothUntil([&] { return hostEditor->ticks > before + 3; }));
    EXPECT_EQ(juce::ComponentPeer::getNumPeers(), 1);
}

TEST_F(TwoCopies, TheBundlesContinuesAfterTheHosts)
{
    Open();
    hostEditor.reset();
    juceOfHost.reset();
    ClickInto(Row(2));
    PressKey("Delete");
    EXPECT_TRUE(IdleUntil([this] { return Stack() == "a c"; }));
}
