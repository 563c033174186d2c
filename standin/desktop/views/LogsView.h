#pragma once
// The bottom: what was said on the left, what the bundle called on the right, with a field that filters the
// calls and a button that lists the acquires and releases of suites among them. Messages follow their newest
// line until the user scrolls up; of the calls the newest group stands first.

#include "standin/desktop/model/Workbench.h"
#include "standin/desktop/views/Field.h"
#include "standin/desktop/views/Theme.h"

namespace standin::desktop
{
class LogsView : public juce::Component
{
public:
    explicit LogsView(Workbench& owner);

    /// Reads the logs again if they have changed.
    void ReadOn();
    void paint(juce::Graphics&) override;
    void resized() override;

private:
    struct Line
    {
        juce::String mark; ///< At the left, in its own column.
        juce::String text;
        juce::String aside; ///< At the right.
        juce::Colour colour;
    };

    class Lines : public juce::ListBoxModel
    {
    public:
        explicit Lines(int columnWidth) : markWidth(columnWidth) {}
        int getNumRows() override { return static_cast<int>(lines.size()); }
        void paintListBoxItem(int row, juce::Graphics&, int width, int height, bool) override;

        juce::Font font = theme::Small();
        std::vector<Line> lines;

    private:
        int markWidth;
    };

    void showMessages();
    void showCalls();
    enum class Follow
    {
        end,
        nothing
    };
    static void update(juce::ListBox&, Lines&, std::vector<Line> lines, Follow follow);
    int leftWidth() const { return getWidth() * 2 / 5; }

    Workbench& bench;
    Lines messageLines{72};
    Lines callLines{0};
    juce::ListBox messages{"messages", &messageLines};
    juce::ListBox calls{"calls", &callLines};
    Field filter;
    juce::TextButton suites{"Suites"};
    std::size_t shownMessages = static_cast<std::size_t>(-1);
    std::size_t shownCalls = static_cast<std::size_t>(-1);
};
} // namespace standin::desktop
