#include "standin/desktop/views/ProjectView.h"

namespace standin::desktop
{
ProjectView::ProjectView(Workbench& owner) : bench(owner)
{
    items.count = [this] { return static_cast<int>(shown.items.size()); };
    items.paintRow = [this](juce::Graphics& g, int row, juce::Rectangle<int> area, bool isHovered)
    { paintItem(g, row, area, isHovered); };
    items.clicked = [this](int row, const juce::ModifierKeys&)
    {
        if (row >= 0)
            bench.User().ClickItem(shown.items[static_cast<std::size_t>(row)].id);
    };
    layers.count = [this] { return static_cast<int>(shown.layers.size()); };
    layers.paintRow = [this](juce::Graphics& g, int row, juce::Rectangle<int> area, bool isHovered)
    { paintLayer(g, row, area, isHovered); };
    layers.clicked = [this](int row, const juce::ModifierKeys& keys)
    {
        if (row < 0)
            return bench.User().SelectNoLayer();
        const bool addsOne = keys.isCommandDown() || keys.isShiftDown();
        bench.User().ClickLayer(shown.layers[static_cast<std::size_t>(row)].id,
                                addsOne ? Click::toggle : Click::alone);
    };
    items.setComponentID("items");
    layers.setComponentID("layers");
    for (auto* port : {&itemsPort, &layersPort})
    {
        port->setScrollBarsShown(true, false);
        addAndMakeVisible(port);
    }
    itemsPort.setViewedComponent(&items, false);
    layersPort.setViewedComponent(&layers, false);
}

void ProjectView::Show(const script::Shown& now)
{
    shown = now;
    resized();
    repaint();
}

void ProjectView::resized()
{
    const int upper = getHeight() * 2 / 5;
    itemsPort.setBounds(0, theme::headerHeight, getWidth(), upper - theme::headerHeight);
    layersPort.setBounds(0, upper + theme::split + theme::headerHeight, getWidth(),
                         getHeight() - upper - theme::split - theme::headerHeight);
    const auto fit = [](Rows& rows, const juce::Viewport& port)
    {
        const int needed = rows.count() * theme::rowHeight;
        const bool scrolls = needed > port.getHeight();
        rows.setSize(port.getWidth() - (scrolls ? port.getScrollBarThickness() : 0),
                     std::max(needed, port.getHeight()));
        rows.repaint();
    };
    fit(items, itemsPort);
    fit(layers, layersPort);
}

void ProjectView::paint(juce::Graphics& g)
{
    g.fillAll(theme::gap);
    const int upper = getHeight() * 2 / 5;
    theme::PaintHeader(g, {0, 0, getWidth(), theme::headerHeight}, "Project");
    g.setColour(theme::surface);
    g.fillRect(itemsPort.getBounds());
    g.fillRect(layersPort.getBounds());
    theme::PaintHeader(g, {0, upper + theme::split, getWidth(), theme::headerHeight}, "Layers",
                       theme::Text(shown.compositionName));
}

void ProjectView::paintRow(juce::Graphics& g, juce::Rectangle<int> area, const juce::String& name, int count,
                           juce::Colour colour)
{
    auto inner = area.withTrimmedLeft(34).withTrimmedRight(theme::margin);
    if (count > 0)
        theme::PaintText(g, juce::String(count), inner.removeFromRight(34), theme::dim, theme::Small(),
                         juce::Justification::centredRight);
    theme::PaintText(g, name, inner, colour, theme::Body());
}

void ProjectView::paintItem(juce::Graphics& g, int row, juce::Rectangle<int> area, bool isHovered) const
{
    const script::ShownItem& item = shown.items[static_cast<std::size_t>(row)];
    if (item.isFront || isHovered)
    {
        g.setColour(item.isFront ? theme::selection : theme::hover);
        g.fillRect(area);
    }
    const bool isComposition = item.kind == ItemKind::composition;
    const auto icon = area.withWidth(34).withSizeKeepingCentre(14, 11).toFloat();
    g.setColour(item.isFront ? theme::accent : theme::dim);
    if (item.kind == ItemKind::folder)
        g.fillRoundedRectangle(icon, 2.0f);
    else
        g.drawRoundedRectangle(icon.reduced(0.5f), 2.0f, 1.3f);
    if (isComposition)
        g.fillRect(icon.reduced(3.5f, 3.0f));
    paintRow(g, area, theme::Text(item.name), item.layerCount, isComposition ? theme::ink : theme::dim);
}

void ProjectView::paintLayer(juce::Graphics& g, int row, juce::Rectangle<int> area, bool isHovered) const
{
    const script::ShownLayer& layer = shown.layers[static_cast<std::size_t>(row)];
    if (layer.isSelected || isHovered)
    {
        g.setColour(layer.isSelected ? theme::selection : theme::hover);
        g.fillRect(area);
    }
    if (layer.isActive)
    {
        g.setColour(theme::accent);
        g.fillRect(area.withWidth(3));
    }
    theme::PaintText(g, juce::String(row + 1), area.withWidth(24), theme::dim, theme::Small(),
                     juce::Justification::centredRight);
    paintRow(g, area, theme::Text(layer.name), layer.effectCount,
             layer.isActive ? theme::strong : theme::ink);
}

void ProjectView::Rows::paint(juce::Graphics& g)
{
    for (int row = 0; row < count(); ++row)
        paintRow(g, row, {0, row * theme::rowHeight, getWidth(), theme::rowHeight}, row == hovered);
}

int ProjectView::Rows::rowAt(int y) const
{
    const int row = y / theme::rowHeight;
    return y >= 0 && row < count() ? row : -1;
}

void ProjectView::Rows::mouseDown(const juce::MouseEvent& e) { clicked(rowAt(e.y), e.mods); }

void ProjectView::Rows::mouseMove(const juce::MouseEvent& e)
{
    if (rowAt(e.y) == hovered)
        return;
    hovered = rowAt(e.y);
    repaint();
}

void ProjectView::Rows::mouseExit(const juce::MouseEvent&)
{
    hovered = -1;
    repaint();
}
} // namespace standin::desktop
