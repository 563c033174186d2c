#pragma once
// Surroundings for checks that look at the panel: a screen of their own, the bundle loaded, one composition
// with one layer. It is a scenario's stage, so what a line of a scenario can do, a check can do with it.

#include "standin/check/Trial.h"
#include "standin/script/Stage.h"

namespace standin::check
{
class PanelScene : public script::Stage
{
public:
    /// Loads the bundle's two entry points. The panel is not open yet.
    explicit PanelScene(Trial& trial, const HostOptions& options = {});

    /// Puts an effect of the family onto the layer under a name, in a group if that is not 0.
    void AddObject(const std::string& name, int group = 0);
    /// "lamp", "mast" in group 1 and "lens" in group 1, below which lies "disc".
    void AddFourObjects();
    void OpenPanel();
    /// Carries out what a line of a scenario says, then idles until all is quiet, unless the idle is held.
    void Do(const std::string& line);
    /// Presses keys of which the panel knows nothing before its next idle.
    void PressUnseen(const std::vector<std::string>& keys);
    /// Requires what a line of a scenario expects, within some seconds.
    void Expect(const std::string& line);
    /// Idle passes until all is quiet.
    void Settle();
    /// Ends the host and requires that nothing was found and that X had no complaint.
    void End();

    /// The texts of the rows, a dash for each level: "Layer", "- Group 1", "-- lamp".
    std::vector<std::string> RowTexts();
    std::vector<std::string> StackNames();
    /// The composition and the layer, with whatever is changed of them.
    Layer& TheLayer() { return *host().State().FindLayer(layer); }
    /// Idles until the rows are what the stack calls for.
    void RequireAgreement();

    Trial& trial;
};
} // namespace standin::check
