#include "tests/walks/LoopWalker.h"

#include "standin/check/WalkActions.h"
#include "standin/check/WalkTexts.h"
#include "standin/host/sensors/FindingIds.h"
#include "standin/script/Parser.h"
#include "tests/walks/LoopFault.h"
#include "tree/NameText.h"
#include "tree/TreeModel.h"

#include <iterator>
#include <stdexcept>

namespace standin::check
{
namespace
{
using Texts = std::vector<std::string>;

/// "-- lamp [x] closed *" for a row that is closed and selected.
std::string rowText(int depth, const std::string& name, const std::string& box, bool isOpen, bool isSelected)
{
    return std::string(static_cast<std::size_t>(depth), '-') + (depth == 0 ? "" : " ") + name + box +
           (isOpen ? "" : " closed") + (isSelected ? " *" : "");
}

std::string boxText(const ModelRow& row)
{
    if (row.IsGroup())
        return " number " + std::to_string(row.number);
    if (!row.IsObject())
        return "";
    return (row.effect.power == Power::on ? " [x]" : " [ ]") + std::string(" group ") +
           std::to_string(row.effect.group);
}

Texts textsOfRows(const StackModel& model)
{
    Texts texts;
    if (model.HasRoot())
        model.Root().ForEachShown(
            [&](const ModelRow& row, int depth)
            { texts.push_back(rowText(depth, row.Name(), boxText(row), row.isOpen, row.isSelected)); });
    return texts;
}

std::string rowText(ValueTreeItem& row)
{
    const juce::ValueTree& node = row.getNode();
    std::string box;
    if (node.hasType(TreeIds::Group))
        box = " number " + std::to_string(int(node[TreeIds::group]));
    else if (node.hasType(TreeIds::Object))
        box = (int(node[TreeIds::active]) != 0 ? " [x]" : " [ ]") + std::string(" group ") +
              std::to_string(int(node[TreeIds::group]));
    int depth = 0;
    for (const juce::TreeViewItem* up = row.getParentItem(); up != nullptr; up = up->getParentItem())
        ++depth;
    return rowText(depth, BytesFromText(node[TreeIds::name].toString()), box, row.isOpen(), row.isSelected());
}
} // namespace

LoopWalker::LoopWalker()
{
    constexpr int passesToOpen = 3;
    const std::string thrown = session.Idle(passesToOpen);
    session.host.ClearTrace();
    (void)session.TakePrinted();
    const std::string wrong = thrown.empty() ? compare() : thrown;
    if (!wrong.empty())
        throw std::runtime_error("the panel does not even open as it should\n    " + wrong);
}

std::string LoopWalker::Take(const WalkStep& step)
{
    try
    {
        if (!step.fault.empty())
            return takeWithFault(step);
        const Texts lines = LinesOf(state, step);
        const int passes = CarryOut(state, step);
        doLines(lines);
        const std::string thrown = session.Idle(passes);
        if (!thrown.empty())
            return thrown;
        return state.isHeld ? compareRows() : compare();
    }
    catch (const std::exception& error)
    {
        return error.what();
    }
}

void LoopWalker::doLines(const Texts& lines)
{
    for (const std::string& line : lines)
        session.Do(line);
}

/// A fault that no call meets changes nothing.
std::string LoopWalker::takeWithFault(const WalkStep& step)
{
    const Texts lines = step.action->lines(state, step);
    Act(state, step);
    session.Do("idle inside no call");
    doLines(lines);
    const StackModel before = state.model;
    const int passes = state.model.Settle();
    std::string wrong = StackDifference(before, session.host, session.layerIds);
    if (!wrong.empty())
        return wrong;
    LoopFault fault(session, before, state.model);
    session.Do("fail " + step.fault);
    if (fault.Pass(passes))
    {
        ++faults;
        fault.Judge(state.model.TakeEmptyOrder());
    }
    else
        wrong = compare();
    session.Do("all is well again");
    fault.PutRight();
    return wrong.empty() ? recover() : wrong;
}

/// The panel forgets what it has seen, and shows the layer as if for the first time.
std::string LoopWalker::recover()
{
    const Texts lines = LinesAfterFault(state.model);
    const int passes = RecoverFromFault(state.model);
    for (auto line = lines.begin(); line + 1 != lines.end(); ++line)
    {
        session.Do(*line);
        const std::string thrown = session.Idle(2);
        if (!thrown.empty())
            return thrown;
    }
    (void)session.TakePrinted();
    (void)session.host.TakeFindings();
    session.host.ClearTrace();
    session.Do(lines.back());
    const std::string thrown = session.Idle(passes);
    return thrown.empty() ? compare() : thrown;
}

std::string LoopWalker::compare()
{
    for (std::string (LoopWalker::*part)() :
         {&LoopWalker::compareFindings, &LoopWalker::compareStacks, &LoopWalker::compareHistory,
          &LoopWalker::compareRows, &LoopWalker::compareHidden, &LoopWalker::comparePrinted,
          &LoopWalker::compareCalls})
    {
        std::string wrong = (this->*part)();
        if (!wrong.empty())
            return wrong;
    }
    return "";
}

/// An order without an object is an empty undo group, which a strict host reports.
std::string LoopWalker::compareFindings()
{
    bool isEmptyGroupFound = false;
    std::string others;
    for (const Finding& finding : session.host.TakeFindings())
        if (finding.id == finding::emptyUndoGroup)
            isEmptyGroupFound = true;
        else
            others += finding.Text() + "\n    ";
    const bool isWanted = state.model.TakeEmptyOrder();
    if (isWanted != isEmptyGroupFound)
        others += isWanted ? "an order without an object is not written" : "an undo group has nothing in it";
    return others;
}

std::string LoopWalker::compareStacks()
{
    return StackDifference(state.model, session.host, session.layerIds);
}

std::string LoopWalker::compareHistory()
{
    const std::string wrong =
        Difference("what can be undone", state.model.UndoNames(), session.host.UndoNames());
    return wrong.empty() ? Difference("what can be redone", state.model.RedoNames(), session.host.RedoNames())
                         : wrong;
}

std::string LoopWalker::compareCalls()
{
    const Texts writes = WritesAmong(session.host.CallTexts(SuiteTraffic::leftOut));
    session.host.ClearTrace();
    return Difference("the calls that write", state.model.TakeWrites(), writes);
}

std::string LoopWalker::compareRows()
{
    Texts found;
    for (ValueTreeItem* row : session.Rows())
        found.push_back(rowText(*row));
    return Difference("the panel's rows", textsOfRows(state.model), found);
}

std::string LoopWalker::compareHidden()
{
    for (std::size_t i = 0; i < session.layerIds.size(); ++i)
    {
        Texts wanted;
        for (const ModelEffect& effect : state.model.StackOf(static_cast<int>(i)))
            if (state.model.IsHidden(effect.id))
                wanted.push_back(script::Quoted(effect.name));
        Texts found;
        for (const EffectInstance& effect : session.host.State().FindLayer(session.layerIds[i])->effects)
            if (effect.groupHidden)
                found.push_back(script::Quoted(session.host.NameOf(effect.label)));
        const std::string wrong =
            Difference("what is hidden of layer \"Solid " + std::to_string(i + 1) + "\"", wanted, found);
        if (!wrong.empty())
            return wrong;
    }
    return "";
}

std::string LoopWalker::comparePrinted()
{
    return Difference("what is printed", state.model.TakePrinted(), session.TakePrinted());
}

std::string LoopWalker::End() { return session.End(); }
} // namespace standin::check
