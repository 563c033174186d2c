// What the steps of a walk are in the model and on the screen.

#include "standin/checks/WalkRows.h"
#include "standin/checks/WalkStep.h"
#include "standin/scenario/Parser.h"
#include "standin/screen/DisplayNames.h"

namespace standin
{
namespace
{
using Deed = WalkStep::Deed;
using Lines = std::vector<std::string>;

constexpr const char* layerNames[] = {"Solid 1", "Solid 2"};

/// A name with the number that tells it from others of the same name: "lamp#2".
std::string reference(const ModelStack& among, int id)
{
    const std::string shown = DisplayNameOf(FindEffect(among, id)->name);
    int nth = 0;
    int all = 0;
    for (const ModelEffect& effect : among)
    {
        all += DisplayNameOf(effect.name) == shown ? 1 : 0;
        if (effect.id == id)
            nth = all;
    }
    return Quoted(nth == 1 ? shown : shown + "#" + std::to_string(nth));
}

Lines hostLines(const StackModel& model, const WalkStep& step)
{
    const auto it = [&] { return reference(model.Stack(), step.id); };
    switch (step.deed)
    {
    case Deed::apply:
        return {"apply " + Quoted(step.text)};
    case Deed::rename:
        return {"rename " + it() + " to " + Quoted(step.text)};
    case Deed::move:
        return {"move " + it() + " to place " + std::to_string(step.number + 1)};
    case Deed::remove:
        return {"delete " + it()};
    case Deed::duplicate:
        return {"duplicate " + it()};
    case Deed::switchOver:
        return {(FindEffect(model.Stack(), step.id)->power == Power::on ? "turn off " : "turn on ") + it()};
    case Deed::putIntoGroup:
        return {"put " + it() + " into group " + std::to_string(step.number)};
    case Deed::undo:
        return {"undo"};
    case Deed::redo:
        return {"redo"};
    case Deed::selectLayer:
        return {"select layer " + Quoted(layerNames[step.number])};
    case Deed::cover:
        return {"cover the panel"};
    case Deed::uncover:
        return {"open the panel"};
    case Deed::hold:
        return {"hold idle"};
    case Deed::goOn:
        return {"go on"};
    default:
        return {};
    }
}

Lines panelLines(const StackModel& model, const WalkStep& step)
{
    const ModelStack rows = InRowOrder(model);
    const auto it = [&] { return reference(rows, step.id); };
    const auto other = [&] { return reference(rows, step.otherId); };
    const std::string group = Quoted(step.text);
    switch (step.deed)
    {
    case Deed::renameRow:
        return {"click row " + it(), "press Return", "type " + Quoted(step.text), "press Return"};
    case Deed::clickBox:
        return {"click box of " + it()};
    case Deed::clickGroupBox:
        return {"click box of " + group};
    case Deed::dragIntoGroup:
        return {"drag row " + it() + " into " + group};
    case Deed::dragAbove:
        return {"drag row " + it() + " above " + other()};
    case Deed::dragBelow:
        return {"drag row " + it() + " below " + other()};
    case Deed::dragToEnd:
        return {"drag row " + it() + " to the end"};
    case Deed::dragGroupAbove:
        return {"drag row " + group + " above " + other()};
    case Deed::dragGroupToEnd:
        return {"drag row " + group + " to the end"};
    case Deed::deleteRow:
        return {"click row " + it(), "press Delete"};
    case Deed::deleteGroup:
        return {"click row " + group, "press Delete"};
    case Deed::addFromMenu:
        return {"choose " + Quoted(DisplayNameOf(step.text)) + " from " +
                Quoted(ApplicableOf(step.text)->button)};
    case Deed::addGroup:
        return {"click button \"Add Group\""};
    default:
        return {};
    }
}

ModelEffect fresh(const WalkStep& step)
{
    return {step.newId, ApplicableOf(step.text)->kind, step.text, 0, Power::on};
}

void doInHost(WalkState& state, const WalkStep& step)
{
    StackModel& model = state.model;
    switch (step.deed)
    {
    case Deed::apply:
        return model.Apply(fresh(step));
    case Deed::rename:
        return model.Rename(step.id, step.text);
    case Deed::move:
        return model.Move(step.id, step.number);
    case Deed::remove:
        return model.Delete(step.id);
    case Deed::duplicate:
        return model.Duplicate(step.id, step.newId);
    case Deed::switchOver:
        return model.Switch(step.id,
                            FindEffect(model.Stack(), step.id)->power == Power::on ? Power::off : Power::on);
    case Deed::putIntoGroup:
        return model.PutIntoGroup(step.id, step.number);
    case Deed::undo:
        return model.Undo();
    case Deed::redo:
        return model.Redo();
    case Deed::selectLayer:
        return model.SelectLayer(step.number);
    case Deed::cover:
    case Deed::uncover:
        state.isCovered = step.deed == Deed::cover;
        return;
    case Deed::hold:
    case Deed::goOn:
        state.isHeld = step.deed == Deed::hold;
        return;
    default:
        return;
    }
}

/// Beside the other's row, among the rows that it stands among.
StackModel::Target beside(const StackModel& model, const WalkStep& step)
{
    StackModel::Target target = PlaceOf(model, step.otherId);
    if (step.deed == Deed::dragBelow)
        ++target.index;
    return target;
}

void doInPanel(StackModel& model, const WalkStep& step)
{
    const std::size_t group = GroupRow(model, step.text).value_or(0);
    switch (step.deed)
    {
    case Deed::renameRow:
        return model.RenameRow(step.id, step.text);
    case Deed::clickBox:
        return model.ClickBox(step.id);
    case Deed::clickGroupBox:
        return model.ClickGroupBox(group);
    case Deed::dragIntoGroup:
        return model.MoveRow(step.id, {static_cast<int>(group), model.Rows()[group].objects.size()});
    case Deed::dragAbove:
    case Deed::dragBelow:
        return model.MoveRow(step.id, beside(model, step));
    case Deed::dragToEnd:
        return model.MoveRow(step.id, {-1, model.Rows().size()});
    case Deed::dragGroupAbove:
        return model.MoveGroupRow(group, PlaceOf(model, step.otherId).index);
    case Deed::dragGroupToEnd:
        return model.MoveGroupRow(group, model.Rows().size());
    case Deed::deleteRow:
        return model.DeleteRow(step.id);
    case Deed::deleteGroup:
        return model.DeleteGroupRow(group);
    case Deed::addFromMenu:
        return model.AddFromMenu(fresh(step));
    case Deed::addGroup:
        return model.AddEmptyGroup();
    default:
        return;
    }
}
} // namespace

std::vector<std::string> LinesOf(const WalkState& state, const WalkStep& step)
{
    Lines lines = hostLines(state.model, step);
    if (lines.empty())
        lines = panelLines(state.model, step);
    if (!step.idlesInside.empty())
        lines.insert(lines.begin(), {"idle inside no call", "idle inside " + step.idlesInside});
    return lines;
}

void CarryOut(WalkState& state, const WalkStep& step)
{
    if (step.deed >= Deed::renameRow)
        doInPanel(state.model, step);
    else
        doInHost(state, step);
    if (!state.isCovered && !state.isHeld)
        state.model.Settle();
}
} // namespace standin
