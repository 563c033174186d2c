#pragma once
// The left column: the project's items, and the layers of the composition in front.

#include "standin/desktop/model/Workbench.h"
#include "standin/desktop/views/Theme.h"
#include "standin/script/record/Shown.h"

namespace standin::desktop
{
class ProjectView : public juce::Component
{
public:
    explicit ProjectView(Workbench& owner);

    void Show(const script::Shown& now);
    void paint(juce::Graphics&) override;
    void resized() override;

private:
    /// A list of rows; what a row looks like and does is the view's business.
    class Rows : public juce::Component
    {
    public:
        std::function<int()> count;
        std::function<void(juce::Graphics&, int, juce::Rectangle<int>, bool isHovered)> paintRow;
        std::function<void(int, const juce::ModifierKeys&)> clicked; ///< -1 below the last row.

        void paint(juce::Graphics&) override;
        void mouseDown(const juce::MouseEvent&) override;
        void mouseMove(const juce::MouseEvent&) override;
        void mouseExit(const juce::MouseEvent&) override;

    private:
        int rowAt(int y) const;
        int hovered = -1;
    };

    void paintItem(juce::Graphics&, int row, juce::Rectangle<int> area, bool isHovered) const;
    void paintLayer(juce::Graphics&, int row, juce::Rectangle<int> area, bool isHovered) const;
    static void paintRow(juce::Graphics&, juce::Rectangle<int> area, const juce::String& name, int count,
                         juce::Colour colour);

    Workbench& bench;
    script::Shown shown;
    Rows items;
    Rows layers;
    juce::Viewport itemsPort;
    juce::Viewport layersPort;
};
} // namespace standin::desktop
