#include "standin/desktop/views/LogsView.h"

namespace standin::desktop
{
namespace
{
constexpr int filterWidth = 220;
constexpr int suitesWidth = 64;

juce::String markOf(MessageKind kind)
{
    switch (kind)
    {
    case MessageKind::printed:
        return "printed";
    case MessageKind::alert:
        return "ALERT";
    case MessageKind::finding:
        return "FINDING";
    case MessageKind::failure:
        return "failed";
    case MessageKind::note:
        break;
    }
    return {};
}

juce::Colour colourOf(MessageKind kind)
{
    switch (kind)
    {
    case MessageKind::printed:
        return theme::ink;
    case MessageKind::alert:
    case MessageKind::failure:
        return theme::warning;
    case MessageKind::finding:
        return theme::alarm;
    case MessageKind::note:
        break;
    }
    return theme::dim;
}

juce::Colour colourOf(CallLine::Kind kind)
{
    switch (kind)
    {
    case CallLine::Kind::head:
        return theme::accent;
    case CallLine::Kind::failedCall:
        return theme::warning;
    case CallLine::Kind::call:
        break;
    }
    return theme::ink;
}
} // namespace

LogsView::LogsView(Workbench& owner) : bench(owner)
{
    callLines.font = theme::Mono();
    for (auto* list : {&messages, &calls})
    {
        list->setRowHeight(theme::lineHeight);
        list->setColour(juce::ListBox::outlineColourId, juce::Colours::transparentBlack);
        addAndMakeVisible(list);
    }
    filter.setComponentID("filter");
    filter.setFont(theme::Small());
    filter.setIndents(6, 3);
    filter.setTextToShowWhenEmpty("Filter the calls", theme::faint);
    filter.onTextChange = [this] { showCalls(); };
    filter.onEscapeKey = [this]
    {
        filter.setText({});
        filter.Leave();
    };
    filter.setJustification(juce::Justification::centredLeft);
    addAndMakeVisible(filter);
    suites.setComponentID("suites");
    suites.setClickingTogglesState(true);
    suites.setWantsKeyboardFocus(false);
    suites.onClick = [this] { showCalls(); };
    addAndMakeVisible(suites);
}

void LogsView::resized()
{
    auto area = getLocalBounds();
    auto left = area.removeFromLeft(leftWidth());
    area.removeFromLeft(theme::split);
    messages.setBounds(left.withTrimmedTop(theme::headerHeight));
    calls.setBounds(area.withTrimmedTop(theme::headerHeight));
    auto head = area.removeFromTop(theme::headerHeight).reduced(0, 3).withTrimmedRight(theme::margin);
    filter.setBounds(head.removeFromRight(filterWidth));
    head.removeFromRight(6);
    suites.setBounds(head.removeFromRight(suitesWidth));
}

void LogsView::paint(juce::Graphics& g)
{
    g.fillAll(theme::gap);
    auto head = getLocalBounds().removeFromTop(theme::headerHeight);
    theme::PaintHeader(g, head.removeFromLeft(leftWidth()), "Messages");
    head.removeFromLeft(theme::split);
    theme::PaintHeader(g, head, "Host Calls");
}

void LogsView::ReadOn()
{
    if (shownMessages != bench.Messages().Revision())
        showMessages();
    if (shownCalls != bench.Calls().Revision())
        showCalls();
}

void LogsView::showMessages()
{
    shownMessages = bench.Messages().Revision();
    std::vector<Line> lines;
    for (const Message& message : bench.Messages().All())
        lines.push_back({markOf(message.kind), theme::Text(message.text),
                         message.times > 1 ? juce::String(message.times) + " times" : juce::String(),
                         colourOf(message.kind)});
    update(messages, messageLines, std::move(lines), Follow::end);
}

void LogsView::showCalls()
{
    shownCalls = bench.Calls().Revision();
    const SuiteTraffic traffic = suites.getToggleState() ? SuiteTraffic::included : SuiteTraffic::leftOut;
    std::vector<Line> lines;
    for (const CallLine& line : bench.Calls().Lines(filter.getText().toStdString(), traffic))
    {
        const char* indent = line.kind == CallLine::Kind::head ? "" : "  ";
        lines.push_back({{}, indent + theme::Text(line.text), {}, colourOf(line.kind)});
    }
    update(calls, callLines, std::move(lines), Follow::nothing);
}

void LogsView::update(juce::ListBox& list, Lines& model, std::vector<Line> lines, Follow follow)
{
    const auto& bar = list.getVerticalScrollBar();
    const bool wasAtEnd = bar.getCurrentRange().getEnd() >= bar.getMaximumRangeLimit() - theme::lineHeight;
    model.lines = std::move(lines);
    list.updateContent();
    if (follow == Follow::end && wasAtEnd && !model.lines.empty())
        list.scrollToEnsureRowIsOnscreen(model.getNumRows() - 1);
    list.repaint();
}

void LogsView::Lines::paintListBoxItem(int row, juce::Graphics& g, int width, int height, bool)
{
    if (row < 0 || row >= getNumRows())
        return;
    const Line& line = lines[static_cast<std::size_t>(row)];
    auto area = juce::Rectangle<int>(0, 0, width, height).reduced(theme::margin, 0);
    theme::PaintText(g, line.mark, area.removeFromLeft(markWidth), line.colour.withMultipliedAlpha(0.75f),
                     font);
    if (line.aside.isNotEmpty())
        theme::PaintText(g, line.aside, area.removeFromRight(90), theme::dim, font,
                         juce::Justification::centredRight);
    theme::PaintText(g, line.text, area, line.colour, font);
}
} // namespace standin::desktop
