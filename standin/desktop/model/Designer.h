#pragma once
// What the user of the desktop does to the project in the host's own windows. Each change is an undo step
// under the host's name for it. Effects, layers and items go by their ids; an id that has gone since the
// window was painted is passed over in silence.

#include <map>
#include <string>
#include <vector>

#include "standin/host/core/Host.h"
#include "standin/script/record/ActionRecord.h"

namespace standin::desktop
{
enum class Click
{
    alone, ///< Only this one is selected from now on.
    toggle ///< This one is added to the others, or taken out.
};

class Designer
{
public:
    explicit Designer(Host& owner) : host(owner) {}

    /// The one listener from now on; null for none.
    void RecordWith(script::ActionRecord* one) { record = one; }

    // Compositions and layers.
    /// "Comp 1", "Comp 2" and so on; it comes to the front. Gives its id.
    int NewComposition();
    /// "Layer 1" and so on in the front composition, and alone selected. Gives its id, or 0 without a
    /// composition.
    int NewLayer();
    /// A composition comes to the front, with its layers as they are selected; anything else is selected in
    /// the project's list.
    void ClickItem(int itemId);
    void ClickLayer(int layerId, Click click);
    void SelectNoLayer();

    // Effects of the active layer.
    /// Puts the focus into the effect controls, as every click there does.
    void ClickEffect(int effectId);
    void ClickNoEffect();
    /// Applies to the active layer and selects the new effect; gives its id, or 0 if no layer is active.
    int Apply(const std::string& matchName);
    void ToggleSwitch(int effectId);
    void ToggleHidden(int effectId);
    void ToggleTwirl(int effectId);
    /// A name that is the one already is no step.
    void Rename(int effectId, const std::string& name);
    /// `gap` counts the gaps between the effects from 0 above the first. The two gaps beside the effect
    /// itself change nothing.
    void MoveToGap(int effectId, int gap);
    void Duplicate(int effectId);
    void Delete(int effectId);
    /// The selected effect of the active layer, or 0.
    int SelectedEffect() const;

    // Undo, as the menu does it: by the host's commands, which plug-ins see.
    void Undo();
    void Redo();

private:
    const EffectInstance* find(int effectId) const;
    std::string unusedName(const char* kind, const std::vector<std::string>& taken) const;
    void focusControls();
    void say(const std::string& pattern, const std::vector<std::string>& blanks = {}) const;
    std::string nameOf(int effectId) const;
    void saySelection() const;

    Host& host;
    script::ActionRecord* record = nullptr;
};

/// The installed effects by category, both in alphabetical order, as the Effect menu lists them.
struct EffectEntry
{
    std::string name;
    std::string matchName;
};
using EffectCategories = std::map<std::string, std::vector<EffectEntry>>;
EffectCategories CategoriesOf(const Host& host);
} // namespace standin::desktop
