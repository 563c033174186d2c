#pragma once
// What a user does in the host itself, outside the plug-in's panel. Each change of the project is an undo
// step of its own under the host's name for it, makes the references of the layer stale and is no call of the
// trace. Effects are named by their label; an unknown label throws std::logic_error, since then the test
// itself is wrong.

#include <cstdint>
#include <string>
#include <vector>

#include "standin/host/core/Abi.h"

namespace standin
{
class Host;

/// Which of the host's windows has the focus.
enum class ActivePanel
{
    timeline,
    comp,
    project,
    layer,
    effectControls,
    footage,
    renderQueue,
    ours, ///< The panel of a plug-in.
    none
};

enum class Switch
{
    off,
    on
};

class UserActions
{
public:
    explicit UserActions(Host& owner) : host(owner) {}

    /// Applies an installed effect by its match name; gives the new instance's id.
    int Apply(int layerId, const std::string& matchName);
    void Rename(const std::string& label, const std::string& name);
    void Reorder(const std::string& label, A_long index);
    void Delete(const std::string& label);
    /// The copy stands behind the original; gives its id.
    int Duplicate(const std::string& label);
    void SetActive(const std::string& label, Switch on);
    void SetHidden(const std::string& label, Switch on);
    /// Changes the group in the effect's own controls.
    void SetGroup(const std::string& label, std::int16_t group);

    /// Opens or closes the effect in the host's windows.
    void ToggleTwirl(int effectId);

    /// Undo takes them back again. They give the id.
    int NewComposition(const std::string& name);
    int NewLayer(int compId, const std::string& name);

    /// False if there is nothing to undo or redo.
    bool Undo();
    bool Redo();

    void SelectItems(std::vector<int> itemIds);
    void SelectLayers(std::vector<int> layerIds);
    void SelectEffect(const std::string& label);
    void SelectEffect(int effectId);
    void SelectNoEffect();
    void Activate(ActivePanel panel);
    /// Goes back to the window of the host that was active before the panel of the plug-in.
    void ActivateLast();
    /// Brings the tab of a composition, or of footage, to the front. 0 closes the tab.
    void OpenComposition(int itemId);
    void OpenFootage(int itemId);
    /// Which layer the Layer panel and the Effect Controls panel show. 0 for none.
    void OpenLayer(int layerId);
    void ShowEffectControls(int layerId);

private:
    Host& host;
};
} // namespace standin
