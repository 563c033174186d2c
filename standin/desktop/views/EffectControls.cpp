#include "standin/desktop/views/EffectControls.h"

namespace standin::desktop
{
namespace
{
constexpr int parameterHeight = 22;
constexpr int twirlWidth = 26;
constexpr int switchWidth = 24;
constexpr int eyeWidth = 30;
constexpr int dragThreshold = 5;

void paintEye(juce::Graphics& g, juce::Rectangle<float> area, bool isHidden)
{
    juce::Path lid;
    lid.startNewSubPath(area.getX(), area.getCentreY());
    lid.quadraticTo(area.getCentreX(), area.getY() - 3.0f, area.getRight(), area.getCentreY());
    lid.quadraticTo(area.getCentreX(), area.getBottom() + 3.0f, area.getX(), area.getCentreY());
    g.strokePath(lid, juce::PathStrokeType(1.2f));
    if (isHidden)
        g.drawLine(area.getX() + 1, area.getBottom() + 1, area.getRight() - 1, area.getY() - 1, 1.2f);
    else
        g.fillEllipse(area.withSizeKeepingCentre(4.0f, 4.0f));
}
} // namespace

EffectControls::EffectControls(Workbench& owner) : bench(owner)
{
    stack.setComponentID("effects");
    port.setScrollBarsShown(true, false);
    port.setViewedComponent(&stack, false);
    addAndMakeVisible(port);
    stack.editor.setComponentID("name");
    stack.editor.setFont(theme::Body());
    stack.editor.onReturnKey = [this]
    {
        stack.EndRename(RenameEnd::taken);
        grabKeyboardFocus();
    };
    stack.editor.onEscapeKey = [this]
    {
        stack.EndRename(RenameEnd::dropped);
        grabKeyboardFocus();
    };
    stack.editor.onFocusLost = [this] { stack.EndRename(RenameEnd::taken); };
}

void EffectControls::Show(const script::Shown& now)
{
    shown = now;
    resized();
    repaint();
}

void EffectControls::RenameSelected() { stack.StartRename(bench.User().SelectedEffect()); }

void EffectControls::resized()
{
    port.setBounds(getLocalBounds().withTrimmedTop(theme::headerHeight));
    const int needed = stack.NeededHeight();
    const bool scrolls = needed > port.getHeight();
    stack.setSize(port.getWidth() - (scrolls ? port.getScrollBarThickness() : 0),
                  std::max(needed, port.getHeight()));
    stack.repaint();
}

void EffectControls::paint(juce::Graphics& g)
{
    g.fillAll(theme::surface);
    const juce::String aside = shown.activeLayer == 0 ? juce::String()
                                                      : theme::Text(shown.compositionName) + "  /  " +
                                                            theme::Text(shown.activeLayerName);
    theme::PaintHeader(g, {0, 0, getWidth(), theme::headerHeight}, "Effect Controls", aside);
}

int HeightOfEffect(const script::ShownEffect& one)
{
    const int rows = one.isOpen ? static_cast<int>(one.parameters.size()) : 0;
    return theme::rowHeight + 2 + rows * parameterHeight;
}

int EffectControls::Stack::topOf(std::size_t index) const
{
    int top = 0;
    for (std::size_t i = 0; i < index && i < effects().size(); ++i)
        top += HeightOfEffect(effects()[i]);
    return top;
}

int EffectControls::Stack::NeededHeight() const { return topOf(effects().size()) + theme::rowHeight; }

std::size_t EffectControls::Stack::indexAt(int y) const
{
    std::size_t index = 0;
    for (int top = 0; index < effects().size(); ++index)
    {
        top += HeightOfEffect(effects()[index]);
        if (y < top)
            break;
    }
    return index;
}

int EffectControls::Stack::gapAt(int y) const
{
    const std::size_t index = indexAt(y);
    if (index == effects().size())
        return static_cast<int>(index);
    const bool isLowerHalf = y >= topOf(index) + HeightOfEffect(effects()[index]) / 2;
    return static_cast<int>(index) + (isLowerHalf ? 1 : 0);
}

juce::Rectangle<int> EffectControls::Stack::nameArea(std::size_t index) const
{
    return juce::Rectangle<int>(0, topOf(index), getWidth(), theme::rowHeight)
        .withTrimmedLeft(twirlWidth + switchWidth + 4)
        .withTrimmedRight(eyeWidth);
}

void EffectControls::Stack::paint(juce::Graphics& g)
{
    if (effects().empty())
    {
        const juce::String why =
            controls.shown.activeLayer != 0
                ? juce::String("The layer has no effects yet. The Effect menu applies one.")
                : theme::Text(controls.shown.whyNothingIsActive);
        return theme::PaintText(g, why, getLocalBounds().withHeight(3 * theme::rowHeight), theme::dim,
                                theme::Body(), juce::Justification::centred);
    }
    for (std::size_t i = 0; i < effects().size(); ++i)
        paintEffect(g, effects()[i], {0, topOf(i), getWidth(), HeightOfEffect(effects()[i])});
    if (isMoving)
    {
        g.setColour(theme::accent);
        g.fillRect(0, std::max(0, topOf(static_cast<std::size_t>(gap)) - 2), getWidth(), 2);
    }
}

void EffectControls::Stack::paintEffect(juce::Graphics& g, const script::ShownEffect& one,
                                        juce::Rectangle<int> area) const
{
    const auto row = area.withHeight(theme::rowHeight);
    g.setColour(one.isSelected ? theme::selection : theme::header.withAlpha(0.6f));
    g.fillRect(row);
    paintMarks(g, one, row);
    auto name = row.withTrimmedLeft(twirlWidth + switchWidth + 4).withTrimmedRight(eyeWidth);
    if (one.group > 0)
        theme::PaintText(g, "Group " + juce::String(one.group), name.removeFromRight(66), theme::dim,
                         theme::Small(), juce::Justification::centredRight);
    if (one.isHidden)
        theme::PaintText(g, "hidden", name.removeFromRight(56), theme::faint, theme::Small(),
                         juce::Justification::centredRight);
    const juce::Font font = one.isHidden ? theme::Body().italicised() : theme::Body();
    theme::PaintText(g, theme::Text(one.name), name, one.isHidden || !one.isOn ? theme::dim : theme::ink,
                     font);
    if (one.isOpen)
        paintParameters(g, one, area.withTrimmedTop(theme::rowHeight));
}

void EffectControls::Stack::paintMarks(juce::Graphics& g, const script::ShownEffect& one,
                                       juce::Rectangle<int> area) const
{
    const auto middle = area.withWidth(twirlWidth).getCentre().toFloat();
    juce::Path twirl;
    twirl.addTriangle(-4.0f, -4.0f, -4.0f, 4.0f, 4.0f, 0.0f);
    const float turn = one.isOpen ? juce::MathConstants<float>::halfPi : 0.0f;
    g.setColour(theme::dim);
    g.fillPath(twirl, juce::AffineTransform::rotation(turn).translated(middle));

    const auto box = area.withTrimmedLeft(twirlWidth).withWidth(switchWidth).withSizeKeepingCentre(20, 16);
    g.setColour(one.isOn ? theme::accent.withAlpha(0.9f) : theme::faint);
    g.drawRoundedRectangle(box.toFloat().reduced(0.5f), 3.0f, 1.0f);
    if (one.isOn)
        theme::PaintText(g, "fx", box, theme::accent, theme::Small().italicised(),
                         juce::Justification::centred);

    g.setColour(one.isHidden ? theme::faint : theme::dim);
    paintEye(g, area.removeFromRight(eyeWidth).withSizeKeepingCentre(14, 8).toFloat(), one.isHidden);
}

void EffectControls::Stack::paintParameters(juce::Graphics& g, const script::ShownEffect& one,
                                            juce::Rectangle<int> area) const
{
    for (const script::ShownParameter& parameter : one.parameters)
    {
        auto row = area.removeFromTop(parameterHeight).withTrimmedLeft(twirlWidth + switchWidth + 4);
        const juce::Colour colour = parameter.isHidden ? theme::faint : theme::dim;
        g.setColour(colour);
        g.drawEllipse(row.removeFromLeft(16).withSizeKeepingCentre(9, 9).toFloat(), 1.0f);
        theme::PaintText(g, theme::Text(parameter.name), row.withTrimmedLeft(6), colour, theme::Small());
        if (parameter.isHidden)
            theme::PaintText(g, "hidden", row.withTrimmedRight(eyeWidth), colour, theme::Small(),
                             juce::Justification::centredRight);
    }
}

void EffectControls::Stack::mouseDown(const juce::MouseEvent& e)
{
    EndRename(RenameEnd::taken);
    const std::size_t index = indexAt(e.y);
    if (index == effects().size())
        return controls.bench.User().ClickNoEffect();
    const int id = effects()[index].id;
    controls.bench.User().ClickEffect(id);
    if (e.y >= topOf(index) + theme::rowHeight)
        return;
    if (e.x < twirlWidth)
        controls.bench.User().ToggleTwirl(id);
    else if (e.x < twirlWidth + switchWidth)
        controls.bench.User().ToggleSwitch(id);
    else if (e.x >= getWidth() - eyeWidth)
        controls.bench.User().ToggleHidden(id);
    else
        dragged = id;
}

void EffectControls::Stack::mouseDrag(const juce::MouseEvent& e)
{
    if (dragged == 0 || (!isMoving && std::abs(e.getDistanceFromDragStartY()) < dragThreshold))
        return;
    isMoving = true;
    gap = gapAt(e.y);
    repaint();
}

void EffectControls::Stack::mouseUp(const juce::MouseEvent&)
{
    if (isMoving)
        controls.bench.User().MoveToGap(dragged, gap);
    dragged = 0;
    isMoving = false;
    repaint();
}

void EffectControls::Stack::mouseDoubleClick(const juce::MouseEvent& e)
{
    const std::size_t index = indexAt(e.y);
    if (index < effects().size() && nameArea(index).contains(e.getPosition()))
        StartRename(effects()[index].id);
}

void EffectControls::Stack::StartRename(int effectId)
{
    for (std::size_t i = 0; i < effects().size(); ++i)
    {
        if (effects()[i].id != effectId)
            continue;
        renamed = effectId;
        editor.setText(theme::Text(effects()[i].name), false);
        editor.setBounds(nameArea(i).reduced(0, 1).translated(-5, 0));
        editor.setVisible(true);
        editor.grabKeyboardFocus();
        editor.selectAll();
    }
}

/// The editor loses the focus as it goes, and comes back here.
void EffectControls::Stack::EndRename(RenameEnd end)
{
    const int one = std::exchange(renamed, 0);
    if (one == 0)
        return;
    if (end == RenameEnd::taken)
        controls.bench.User().Rename(one, editor.getText().toStdString());
    editor.setVisible(false);
}
} // namespace standin::desktop
