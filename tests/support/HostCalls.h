#pragma once
// The one writer of expected host calls: a stack as the trace of the stand-in host shows it, and for each
// operation of the product the calls of which it consists, a line each, without the suites' acquires and
// releases. A test puts the groups together.

#include "tests/support/ProductHost.h"

#include <string>
#include <vector>

namespace standin
{
using Calls = std::vector<std::string>;

/// All the groups in one list.
Calls Sequence(const std::vector<Calls>& groups);
/// The calls, a line each.
std::string TextOf(const Calls& calls);
/// The words of `text`.
std::vector<std::string> Words(const std::string& text);

constexpr const char* zeroUuid = "00000000-0000-0000-0000-000000000000";

/// One effect of the layer as the calls show it.
struct TracedEffect
{
    std::string label;           ///< Also its name on the layer, unless another is given.
    std::string uuid = zeroUuid; ///< Its answer.
    std::string matchName = {};
    int key = 0;
    int group = 0; ///< Its answer.
    int flags = 1;
    std::string name = label;
    bool parameterHidden = false; ///< The first parameter's flag.
};

/// The stack of layer 1 from the top, and the plug-in that makes the calls. Time 0 of the layer is the
/// composition's. `index` counts from the top. An effect is meant by its label or by its index.
struct TracedStack
{
    int pluginId;
    std::vector<TracedEffect> effects;

    TracedEffect& At(const std::string& label)
    {
        return effects.at(static_cast<std::size_t>(IndexOf(label)));
    }
    int IndexOf(const std::string& label) const;

    /// The messages: the question for the group, the question for the identity, and the telling of a group.
    Calls AskGroup(int index) const;
    Calls AskIdentity(int index) const;
    Calls TellGroup(int index, int group) const;

    Calls Count() const;
    /// The layer is counted and every effect is asked for its identity.
    Calls ReadIdentities() const;
    /// What the host is asked about one effect in a read.
    Calls ReadEffect(int index) const;
    /// The whole read of the layer.
    Calls Read() const;
    /// The host is asked for the match name.
    Calls ReadMatchName(int index) const;

    /// One rename with its undo group, after the identities were read.
    Calls Rename(int index, const std::string& name) const;
    /// One switching of the active state, after the identities were read.
    Calls SwitchTo(int index, int active) const;
    /// One move within the undo group of the order. The effect is at `from` by then, whatever its place here.
    Calls Move(const std::string& label, int from, int to) const;

    Calls Hide(int index) const;
    Calls Show(int index) const;
    Calls TwirlOpen(int index) const;
    Calls TwirlClosed(int index) const;

    Calls TellGroup(const std::string& label, int group) const { return TellGroup(IndexOf(label), group); }
    Calls Rename(const std::string& label, const std::string& name) const
    {
        return Rename(IndexOf(label), name);
    }
    Calls SwitchTo(const std::string& label, int active) const { return SwitchTo(IndexOf(label), active); }

    /// The order in its undo group. "C 2>0 A 1>1" moves C, which is at 2 by then, to 0, and A in its place. A
    /// move with an error after it is refused: "A 0>3=3".
    Calls Order(const std::string& undoName, const std::string& moves) const;
    /// The same with each effect in its place already.
    Calls OrderInPlace(const std::string& undoName) const;
    /// The deletion in its undo group: "C 2>0 E 4>1" moves C from 2 to the top and E below it, and deletes
    /// them from there.
    Calls Delete(const std::string& moves) const;
    /// What a selection asks after its reading, before it touches an effect.
    Calls Classify() const;
    /// What a selection does to effects: "-A +B" hides A and shows B, "<A >B" twirls A closed and B open.
    Calls Touch(const std::string& script) const;
    /// Each of these changes, with the identities read before it.
    Calls AfterReading(const std::vector<Calls>& changes) const;

private:
    const TracedEffect& at(int index) const { return effects.at(static_cast<std::size_t>(index)); }
    Calls message(int index, const std::string& sent, const std::string& answer) const;
    std::string take(const std::string& label, int index, int suite = 1) const;
    Calls takeStreams(int index) const;
    Calls disposeOfAll(int index) const;
    Calls inUndoGroup(const std::string& undoName, int index, const Calls& calls) const;
};

/// The stack of the layer as it stands in the project, from the top.
TracedStack TracedStackOf(ProductHost& product, const std::vector<std::string>& labels);
} // namespace standin
