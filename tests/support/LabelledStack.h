#pragma once
// One layer whose effects go by short labels, and a notation for stacks and item lists that is written with
// these labels. The first letter of a label says what kind of effect it is:
//   K  the kit effect      M  the main effect      L  the legacy effect      X  an outside effect
//   E  an effector         R  a renderer           any other letter: a geometry object
// Every effect has its label as its custom name.
//
// The notation is a word for each effect: its label, then what is special about it. "A B=Front@3! C~" is A as
// it is made, B with the name Front, in group 3 and switched off, and C hidden; "A~1" hides its parameter 1.
// Among items "?" is an identity that the layer does not hold, "0" the zero identity.

#include "effects/ObjectItem.h"
#include "tests/support/HostCalls.h"

#include <functional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace standin
{
using Items = std::vector<ObjectItem>;

struct LabelledStack : ProductHost
{
    explicit LabelledStack(const std::string& labels = "", HostOptions options = {});

    A_long KeyOf(const std::string& label) const;

    /// What the layer holds, read from the project without any host call.
    Items LayerItems();
    /// The items that `notation` describes. What it does not say of an item is as on the layer.
    Items Tree(const std::string& notation);
    /// The items in the notation, with "@" and the group unless it is 0. "#" and the tag follow if it is not
    /// the effect's match name; for an identity that the layer does not hold, the identity stands for the
    /// label.
    std::string Text(const Items& items);
    /// The stack in the notation.
    std::string Text();

    /// The labels from the top of the stack down.
    std::string Stack() const { return host.StackText(layerId); }
    /// The whole stack as the calls show it now.
    TracedStack Traced() { return TracedStackOf(*this, Words(Stack())); }

    /// Runs LayerEffectChanges in a hook, with the layer's own items as the layer's list.
    HookResult Change(const Items& treeItems) { return Change(LayerItems(), treeItems); }
    HookResult Change(const Items& layerItems, const Items& treeItems);
    HookResult ChangeOn(AEGP_LayerH layer, const Items& layerItems, const Items& treeItems);
    /// The same with a tree in the notation. What is printed is kept.
    HookResult ChangeTo(const std::string& tree) { return ChangeTo(LayerItems(), Tree(tree)); }
    HookResult ChangeTo(const Items& layerItems, const Items& treeItems);

    /// Runs SelectEffectsFromItems in a hook.
    HookResult Select(bool useHide, bool touchMain, const Items& selected);
    HookResult SelectOn(AEGP_LayerH layer, bool useHide, bool touchMain, const Items& selected);

    /// What `operation` returns when a hook of the host calls it. Keeps what it prints.
    template <class Operation>
    int InHook(Operation operation)
    {
        int returned = 0;
        const HookResult hook = printing([&] { return host.RunInHook([&] { returned = operation(); }); });
        if (hook.thrownNumber || !hook.thrown.empty())
            throw std::logic_error("the operation threw " + hook.thrown);
        return returned;
    }

    /// The names of the undo steps, in brackets: "[Rename Effect(s)][]".
    std::string Steps();
    /// Undoes all there is; says whether the project is again what it was before the first step.
    bool UndoBringsBackTheStart();
    /// Gives the effects that the test has not named the label "new".
    void LabelNewEffects();

    /// The trace since the operation began, a line each, without the suites' acquires and releases.
    std::string Calls();
    std::string CallsWithSuites();
    standin::Calls CallList() const { return host.CallTexts(SuiteTraffic::leftOut); }
    /// The part of it from the start of the first undo group on.
    standin::Calls Sweep() const;

    /// All findings so far, expected ones too, with those about the suites' balance: "id function", sorted.
    std::vector<std::string> Found();

    /// What was printed since the last call.
    std::string TakePrinted() { return std::exchange(printed, ""); }

private:
    std::string printed;
    HookResult printing(const std::function<HookResult()>& run);
    ObjectItem itemOf(const EffectInstance& effect);
    ObjectItem itemIn(const std::string& word);
    ProjectState start; ///< When the operation began.
};

/// The match name of the kind of effect that the label's first letter stands for.
const char* MatchNameOf(const std::string& label);

/// The item of that label in a list that Tree made.
ObjectItem& ItemNamed(Items& items, const std::string& name);
} // namespace standin
