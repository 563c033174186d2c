#include "standin/check/Walker.h"

#include "standin/check/WalkTexts.h"
#include "standin/script/Parser.h"
#include "standin/script/Phrase.h"
#include "standin/user/eyes/DisplayNames.h"

#include <sstream>

namespace standin::check
{
namespace
{
using Texts = std::vector<std::string>;

const char* textOf(user::Box box)
{
    switch (box)
    {
    case user::Box::none:
        return "";
    case user::Box::empty:
        return " [ ]";
    case user::Box::half:
        return " [-]";
    case user::Box::full:
        break;
    }
    return " [x]";
}

std::string rowText(int depth, const std::string& text, user::Box box)
{
    return std::string(static_cast<std::size_t>(depth), '-') + (depth == 0 ? "" : " ") + text + textOf(box);
}

user::Box boxOf(const ModelEffect& effect)
{
    return effect.kind != ModelKind::outside && effect.power == Power::on ? user::Box::full
                                                                          : user::Box::empty;
}

user::Box boxOf(const ModelRow& row)
{
    if (row.kind == ModelRow::Kind::layer)
        return user::Box::none;
    if (!row.IsGroup())
        return boxOf(row.effect);
    std::size_t on = 0;
    std::size_t all = 0;
    for (const ModelRow& each : row.rows)
    {
        all += each.IsObject() ? 1 : 0;
        on += each.IsObject() && each.effect.power == Power::on ? 1 : 0;
    }
    return on == 0 ? user::Box::empty : on == all ? user::Box::full : user::Box::half;
}

Texts textsOf(const StackModel& model)
{
    Texts texts;
    if (model.HasRoot())
        model.Root().ForEachShown(
            [&](const ModelRow& row, int depth)
            { texts.push_back(rowText(depth, user::DisplayNameOf(row.Name()), boxOf(row))); });
    return texts;
}

Texts textsOf(const std::vector<user::PanelRow>& rows)
{
    Texts texts;
    for (const user::PanelRow& row : rows)
        texts.push_back(rowText(row.depth, row.text, row.box));
    return texts;
}
} // namespace

Walker::Walker(const std::string& bundleFile) : stage(bundleFile, user::DisplayChoice::own)
{
    stage.session.TheBundle().LoadAll(stage.host());
    for (const std::string& line : WalkBeginLines())
        carryOut(line);
    layerIds = {stage.LayerId("Solid 1"), stage.LayerId("Solid 2")};
    stage.session.Forget();
    const std::string wrong = compare();
    if (!wrong.empty())
        throw script::StageError("the panel does not even open as it should\n    " + wrong);
}

void Walker::carryOut(const std::string& line)
{
    std::istringstream text(line);
    for (const script::Statement& statement : script::ParseScenario(text, "walk"))
    {
        const script::Step step = script::BindPhrase(statement);
        for (const std::string& each : step.arguments.texts)
            stage.AddCandidate(each);
        step.phrase->act(stage, step.arguments);
        if (step.phrase->kind == script::Phrase::Kind::action && stage.held == script::IdleHeld::no)
            stage.session.Settle();
    }
}

std::string Walker::Take(const WalkStep& step)
{
    const Texts lines = LinesOf(state, step);
    if (!state.isHeld)
        stage.session.Forget();
    (void)CarryOut(state, step);
    try
    {
        for (const std::string& line : lines)
            carryOut(line);
    }
    catch (const std::exception& error)
    {
        return error.what();
    }
    return state.isHeld ? "" : compare();
}

std::string Walker::compare()
{
    for (std::string (Walker::*part)() :
         {&Walker::compareSensors, &Walker::compareStacks, &Walker::compareHistory, &Walker::compareWrites,
          &Walker::compareRows})
    {
        std::string wrong = (this->*part)();
        if (!wrong.empty())
            return wrong;
    }
    return "";
}

std::string Walker::compareStacks() { return StackDifference(state.model, stage.host(), layerIds); }

std::string Walker::compareHistory()
{
    const auto quoted = [](Texts names)
    {
        for (std::string& name : names)
            name = script::Quoted(name);
        return names;
    };
    std::string wrong =
        Difference("what can be undone", quoted(state.model.UndoNames()), quoted(stage.host().UndoNames()));
    if (!wrong.empty())
        return wrong;
    return Difference("what can be redone", quoted(state.model.RedoNames()),
                      quoted(stage.host().RedoNames()));
}

std::string Walker::compareWrites()
{
    return Difference("the calls that write", state.model.TakeWrites(), WritesAmong(stage.session.Calls()));
}

std::string Walker::compareRows()
{
    if (state.model.Tab() != TabPlace::inFront)
        return "";
    const Texts wanted = textsOf(state.model);
    const auto agree = [&] { return textsOf(stage.Rows()) == wanted; };
    if (stage.session.IdleUntil(agree, user::waits::untilRowsFollow))
        return "";
    return Difference("the panel's rows", wanted, textsOf(stage.Rows()));
}

std::string Walker::compareSensors()
{
    if (!stage.session.Thrown().empty())
        return "a hook was left by " + stage.session.Thrown();
    return stage.host().FindingsReport(); // Leaked references and open undo groups among them.
}

std::string Walker::End()
{
    stage.session.End();
    return stage.host().FindingsReport();
}
} // namespace standin::check
