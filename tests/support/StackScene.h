#pragma once
// One layer whose effects go by short labels, and item lists that are written with these labels. The first
// letter of a label says what kind of effect it is:
//   K  the kit effect      M  the main effect      L  the legacy effect
//   Z  an effect from outside the family           any other letter: an object of the family
// Every effect bears its label as its custom name.

#include "effects/ObjectItem.h"
#include "tests/support/ProductHost.h"

#include <string>
#include <vector>

namespace standin
{
using Items = std::vector<ObjectItem>;

struct StackScene : ProductHost
{
    explicit StackScene(const std::string& labels, HostOptions options = {});

    /// What the layer holds, read from the project without any host call.
    Items LayerItems();

    /// The item of each label, in this order. "?" is an identity that the layer does not hold, "0" the zero
    /// identity.
    Items Tree(const std::string& labels);

    /// The labels from the top of the stack down.
    std::string Stack() { return host.StackText(layerId); }

    /// The name, group, active state and hidden flags of each effect, a line each, from the top down.
    std::string Report();

    /// Runs LayerEffectChanges in a hook, with the layer's own items as the layer's list.
    HookResult Change(const Items& treeItems) { return Change(LayerItems(), treeItems); }
    HookResult Change(const Items& layerItems, const Items& treeItems);
    HookResult ChangeOn(AEGP_LayerH layer, const Items& layerItems, const Items& treeItems);

    /// Runs SelectEffectsFromItems in a hook.
    HookResult Select(bool useHide, bool touchMain, const Items& selected);
    HookResult SelectOn(AEGP_LayerH layer, bool useHide, bool touchMain, const Items& selected);

    /// The names of the undo steps, in brackets: "[Rename Effect(s)][]".
    std::string Steps();
    /// Undoes all there is; says whether the project is again what it was before the first step.
    bool UndoBringsBackTheStart();

    /// The trace since the operation began, a line each, without the suites' acquires and releases.
    std::string Calls();
    std::string CallsWithSuites();

    /// All findings so far, expected ones too, with those about the suites' balance: "id function", sorted.
    std::vector<std::string> Found();

private:
    ObjectItem itemOf(const EffectInstance& effect);
    ProjectState start; ///< When the operation began.
};

/// The words of `text`.
std::vector<std::string> Words(const std::string& text);

/// The item of that label in a list that Tree made.
ObjectItem& ItemNamed(Items& items, const std::string& name);
} // namespace standin
