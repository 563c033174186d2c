#pragma once
// The middle: the effects of the active layer, as the host's own effect controls show them. A row's twirl,
// switch and eye are clicked; its name is double-clicked; the row itself is dragged to another place.

#include "standin/desktop/model/Workbench.h"
#include "standin/desktop/views/Field.h"
#include "standin/desktop/views/Theme.h"
#include "standin/script/record/Shown.h"

namespace standin::desktop
{
/// The height of an effect's row in the controls, with its parameters if it is twirled open.
int HeightOfEffect(const script::ShownEffect& effect);

class EffectControls : public juce::Component
{
public:
    explicit EffectControls(Workbench& owner);

    void Show(const script::Shown& now);
    /// Opens the name of the selected effect for typing.
    void RenameSelected();
    /// Whether an effect is being dragged: the host does not idle then.
    bool IsDragging() const { return stack.dragged != 0 && stack.isMoving; }
    bool IsRenaming() const { return stack.renamed != 0; }

    void paint(juce::Graphics&) override;
    void resized() override;

private:
    enum class RenameEnd
    {
        taken,
        dropped
    };

    class Stack : public juce::Component
    {
    public:
        explicit Stack(EffectControls& owner) : controls(owner) { addChildComponent(editor); }

        int NeededHeight() const;
        void StartRename(int effectId);
        void EndRename(RenameEnd end);

        void paint(juce::Graphics&) override;
        void mouseDown(const juce::MouseEvent&) override;
        void mouseDrag(const juce::MouseEvent&) override;
        void mouseUp(const juce::MouseEvent&) override;
        void mouseDoubleClick(const juce::MouseEvent&) override;

        Field editor;
        int dragged = 0;
        int renamed = 0;
        bool isMoving = false;

    private:
        const std::vector<script::ShownEffect>& effects() const { return controls.shown.effects; }
        int topOf(std::size_t index) const;
        /// The effect whose row, parameters included, is there; the number of effects below the last.
        std::size_t indexAt(int y) const;
        int gapAt(int y) const;
        juce::Rectangle<int> nameArea(std::size_t index) const;
        void paintEffect(juce::Graphics&, const script::ShownEffect&, juce::Rectangle<int> area) const;
        void paintMarks(juce::Graphics&, const script::ShownEffect&, juce::Rectangle<int> area) const;
        void paintParameters(juce::Graphics&, const script::ShownEffect&, juce::Rectangle<int> area) const;

        EffectControls& controls;
        int gap = 0;
    };

    Workbench& bench;
    script::Shown shown;
    Stack stack{*this};
    juce::Viewport port;
};
} // namespace standin::desktop
