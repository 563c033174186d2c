#include "standin/desktop/views/DockView.h"

#include <JuceText.h>

namespace standin::desktop
{
namespace
{
constexpr const char* otherName = "Layer Info";
constexpr int markWidth = 20;

unsigned long windowOf(const juce::Component& component)
{
    const auto* peer = component.getPeer();
    return peer != nullptr ? reinterpret_cast<unsigned long>(peer->getNativeHandle()) : 0;
}

/// From pixels of JUCE to pixels of the screen.
juce::Rectangle<int> onScreen(juce::Rectangle<int> area)
{
    return (area.toDouble() * static_cast<double>(juce::Desktop::getInstance().getGlobalScaleFactor()))
        .toNearestInt();
}
} // namespace

/// The panel's own window. It draws its title bar itself, so that it has one where no window manager runs.
/// Closing it closes the panel.
class DockView::Floating : public juce::DocumentWindow
{
public:
    Floating(Workbench& owner, const juce::String& name, juce::Point<int> at)
        : DocumentWindow(name, theme::surface, DocumentWindow::closeButton), bench(owner)
    {
        setTitleBarHeight(theme::headerHeight);
        setColour(juce::DocumentWindow::textColourId, theme::strong);
        setContentNonOwned(&inside, false);
        setResizable(true, false);
        setBounds(at.x, at.y, 360, 480);
        setVisible(true);
    }
    void closeButtonPressed() override { bench.TheDock().ClosePanel(); }
    const juce::Component& Inside() const { return inside; }

private:
    Workbench& bench;
    juce::Component inside;
};

DockView::DockView(Workbench& owner, X11Containers& nativeViews) : bench(owner), containers(nativeViews)
{
    setComponentID("dock");
}

DockView::~DockView() = default;

void DockView::Show(const script::Shown& now)
{
    shown = now;
    repaint();
}

void DockView::Follow()
{
    const DockState& dock = bench.TheDock();
    if (dock.Place() != place || dock.PanelIsInFront() != isInFront)
    {
        place = dock.Place();
        isInFront = dock.PanelIsInFront();
        repaint();
    }
    if (place == PanelPlace::floating)
    {
        if (floating == nullptr)
            floating = std::make_unique<Floating>(bench, theme::Text(dock.PanelName()),
                                                  getScreenPosition() + juce::Point<int>(-90, 60));
        return placeNativeView(floating->Inside(), 0);
    }
    placeNativeView(*this, theme::headerHeight);
    floating.reset(); // Only now is the panel out of that window.
}

void DockView::placeNativeView(const juce::Component& around, int fromTop)
{
    const auto* top = around.getTopLevelComponent();
    const auto area = onScreen(top->getLocalArea(&around, around.getLocalBounds().withTrimmedTop(fromTop)));
    const unsigned long window = windowOf(*top);
    if (window == 0 || (window == lastParent && area == lastArea))
        return;
    lastParent = window;
    lastArea = area;
    containers.Place(window, {area.getX(), area.getY(), area.getWidth(), area.getHeight()});
}

juce::Rectangle<int> DockView::panelTab() const
{
    if (place != PanelPlace::docked)
        return {};
    const int width = TextWidth(theme::Body(), theme::Text(bench.TheDock().PanelName()));
    return {0, 0, width + 2 * theme::margin + 2 * markWidth, theme::headerHeight};
}

juce::Rectangle<int> DockView::otherTab() const
{
    return {panelTab().getRight(), 0, TextWidth(theme::Body(), otherName) + 2 * theme::margin,
            theme::headerHeight};
}

juce::Rectangle<int> DockView::closeMark() const
{
    return panelTab().removeFromRight(markWidth + 2).withTrimmedRight(2);
}

juce::Rectangle<int> DockView::undockMark() const { return closeMark().translated(-markWidth, 0); }

void DockView::paint(juce::Graphics& g)
{
    g.fillAll(theme::surface);
    g.setColour(theme::gap);
    g.fillRect(0, 0, getWidth(), theme::headerHeight);
    const bool panelShows = place == PanelPlace::docked && isInFront;
    if (place == PanelPlace::docked)
    {
        paintTab(g, panelTab(), theme::Text(bench.TheDock().PanelName()), panelShows);
        paintMarks(g);
    }
    paintTab(g, otherTab(), otherName, !panelShows);
    if (!panelShows)
        paintInfo(g, getLocalBounds().withTrimmedTop(theme::headerHeight).reduced(2 * theme::margin));
}

void DockView::paintTab(juce::Graphics& g, juce::Rectangle<int> area, const juce::String& name,
                        bool isFront) const
{
    g.setColour(isFront ? theme::surface : theme::gap);
    g.fillRect(area);
    if (isFront)
    {
        g.setColour(theme::accent);
        g.fillRect(area.withHeight(2));
    }
    theme::PaintText(g, name, area.reduced(theme::margin, 0), isFront ? theme::strong : theme::dim,
                     theme::Body());
}

void DockView::paintMarks(juce::Graphics& g) const
{
    g.setColour(theme::dim);
    const auto close = closeMark().withSizeKeepingCentre(8, 8).toFloat();
    g.drawLine({close.getTopLeft(), close.getBottomRight()}, 1.4f);
    g.drawLine({close.getBottomLeft(), close.getTopRight()}, 1.4f);
    const auto undock = undockMark().withSizeKeepingCentre(10, 10).toFloat();
    g.drawRect(undock.withTrimmedTop(3).withTrimmedRight(3), 1.2f);
    g.drawRect(undock.withTrimmedBottom(3).withTrimmedLeft(3), 1.2f);
}

void DockView::paintInfo(juce::Graphics& g, juce::Rectangle<int> area) const
{
    const auto row = [&](const juce::String& name, const juce::String& value)
    {
        auto cells = area.removeFromTop(theme::rowHeight);
        theme::PaintText(g, name, cells.removeFromLeft(110), theme::dim, theme::Body());
        theme::PaintText(g, value, cells, theme::ink, theme::Body());
    };
    row("Composition", theme::Text(shown.compositionName));
    if (shown.activeLayer == 0)
        return row("Layer", "none is active");
    const auto count = [&](auto is)
    { return juce::String(std::count_if(shown.effects.begin(), shown.effects.end(), is)); };
    row("Layer", theme::Text(shown.activeLayerName));
    row("Effects", juce::String(shown.effects.size()));
    row("Switched off", count([](const script::ShownEffect& one) { return !one.isOn; }));
    row("Hidden", count([](const script::ShownEffect& one) { return one.isHidden; }));
    row("In groups", count([](const script::ShownEffect& one) { return one.group > 0; }));
}

void DockView::mouseDown(const juce::MouseEvent& e)
{
    DockState& dock = bench.TheDock();
    if (closeMark().contains(e.getPosition()))
        dock.ClosePanel();
    else if (undockMark().contains(e.getPosition()))
        dock.Undock();
    else if (panelTab().contains(e.getPosition()))
        dock.ShowPanel();
    else if (otherTab().contains(e.getPosition()))
        dock.ShowOther();
    bench.Collect("The dock");
    Follow();
}
} // namespace standin::desktop
