#include "standin/checks/PanelScene.h"

namespace standin
{
namespace
{
constexpr auto patience = std::chrono::seconds(5);
} // namespace

PanelScene::PanelScene(Trial& theTrial) : Stage(theTrial.BundleFile(), DisplayChoice::own), trial(theTrial)
{
    session.bundle.LoadAll(host());
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
    (void)host().SetPanelState(Session::panelName, PanelState::frontmost);
    Settle();
}

void PanelScene::Settle()
{
    session.Forget();
    session.Settle();
    trial.RequireEqual(session.Thrown(), std::string(), "what left a hook");
}

void PanelScene::End()
{
    session.End();
    trial.RequireNoFindings(host());
    trial.RequireEqual(session.dock.Errors(), 0, "the number of errors that X told the host of");
}

std::vector<std::string> PanelScene::RowTexts()
{
    std::vector<std::string> shown;
    for (const PanelRow& row : Rows())
        shown.push_back(RowText(row));
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
    for (const PanelRow& row : RowsOfStack())
        expected.push_back(RowText(row));
    (void)session.IdleUntil([&] { return RowTexts() == expected; }, patience);
    trial.RequireLines(RowTexts(), expected, "the rows of the panel");
}
} // namespace standin
