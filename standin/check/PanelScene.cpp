#include "standin/check/PanelScene.h"

#include "standin/script/Parser.h"
#include "standin/script/Phrase.h"

#include <sstream>
#include <thread>

namespace standin::check
{
namespace
{
script::Step stepFrom(const std::string& line)
{
    std::istringstream text(line);
    return script::BindPhrase(script::ParseScenario(text, "check").front());
}
} // namespace

PanelScene::PanelScene(Trial& theTrial, const HostOptions& options)
    : script::Stage(theTrial.File(), user::DisplayChoice::own), trial(theTrial)
{
    host().Options() = options;
    session.TheBundle().LoadAll(host());
    composition = host().AddComposition("Comp 1");
    layer = host().AddLayer(composition, "Solid 1");
    host().User().SelectLayers({layer});
}

void PanelScene::AddObject(const std::string& name, int group)
{
    const int id = host().AddEffect(layer, "QVK VORTSRC Lamps");
    EffectInstance& effect = *host().State().FindEffect(id);
    effect.label = name;
    effect.customName = name;
    effect.family.group = static_cast<std::int16_t>(group);
}

void PanelScene::AddFourObjects()
{
    AddObject("lamp");
    AddObject("mast", 1);
    AddObject("lens", 1);
    AddObject("disc");
}

void PanelScene::OpenPanel()
{
    (void)host().SetPanelState(user::Session::panelName, PanelState::frontmost);
    Settle();
}

void PanelScene::Do(const std::string& line)
{
    trial.At(line);
    host().Findings().SetOrigin(line);
    const script::Step step = stepFrom(line);
    for (const std::string& text : step.arguments.texts)
        AddCandidate(text);
    if (held == script::IdleHeld::no)
        session.Forget();
    step.phrase->act(*this, step.arguments);
    if (held == script::IdleHeld::no)
        Settle();
}

void PanelScene::PressUnseen(const std::vector<std::string>& keys)
{
    // What the server has taken in has reached the panel's connection a moment later.
    constexpr auto untilArrived = std::chrono::milliseconds(10);
    for (const std::string& key : keys)
        session.PressKey(key);
    std::this_thread::sleep_for(untilArrived);
}

void PanelScene::Expect(const std::string& line)
{
    const script::Step step = stepFrom(line);
    for (const std::string& text : step.arguments.texts)
        AddCandidate(text);
    std::string found;
    const auto holds = [&] { return (found = step.phrase->check(*this, step.arguments)).empty(); };
    const bool isSo = Await(holds, user::waits::untilExpected);
    trial.Require(isSo, line + ": " + found);
}

void PanelScene::Settle()
{
    session.Settle();
    trial.RequireEqual(session.Thrown(), std::string(), "what left a hook");
}

void PanelScene::End()
{
    session.End();
    trial.RequireNoFindings(host());
    trial.RequireEqual(session.TakeErrors(), 0, "the number of errors that X told the host of");
}

std::vector<std::string> PanelScene::RowTexts()
{
    std::vector<std::string> shown;
    for (const user::PanelRow& row : Rows())
        shown.push_back(script::RowText(row));
    return shown;
}

std::vector<std::string> PanelScene::StackNames()
{
    std::vector<std::string> names;
    for (const EffectInstance& effect : host().State().FindLayer(layer)->effects)
        names.push_back(host().NameOf(effect.label));
    return names;
}

void PanelScene::RequireAgreement()
{
    std::vector<std::string> expected;
    for (const user::PanelRow& row : RowsOfStack())
        expected.push_back(script::RowText(row));
    (void)session.IdleUntil([&] { return RowTexts() == expected; }, user::waits::untilExpected);
    trial.RequireLines(RowTexts(), expected, "the rows of the panel");
}
} // namespace standin::check
