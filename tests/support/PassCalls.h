#pragma once
// The calls of the idle pass, as the trace of the stand-in host and the log of the fake tree tell them,
// without the traffic of suites. Each function spells out one group of calls, for the plug-in with the id
// 8 on layer 1 of item 101.

#include <string>
#include <vector>

namespace standin
{
using Calls = std::vector<std::string>;

/// One effect of the layer as the calls tell it.
struct EffectRow
{
    std::string label; ///< Also its name on the layer, unless another is given.
    std::string uuid;
    std::string matchName;
    int key = 0;
    int group = 0;
    int flags = 1;
    std::string name = label;
};
using EffectRows = std::vector<EffectRow>;

/// All the groups in one list.
Calls Sequence(const std::vector<Calls>& groups);

/// What every pass begins with: the panel is up, item 101 is active and layer 1 is its active layer.
Calls PassHead();
/// The question for adds and deletes that has an empty answer.
Calls NoAddsAndDeletes();

/// A message that asks the effect at `index` for its group.
Calls GroupMessage(const EffectRows& rows, int index);
/// A message that asks the effect at `index` for its identity.
Calls IdentityMessage(const EffectRows& rows, int index);
/// What the host itself is asked about the effect at `index`.
Calls HostRead(const EffectRows& rows, int index);

/// The whole reading of a layer.
Calls LayerRead(const EffectRows& rows);
/// The identities alone, as the writing operations read them.
Calls IdentityRead(const EffectRows& rows);

/// The rebuild of the tree behind the second reading.
Calls TreeRebuild(const std::string& names);
/// The tree's turn in a pass in which nothing has moved.
Calls QuietTree();

/// The name of the effect at `index` goes to the host.
Calls RenameChange(const EffectRows& rows, int index, const std::string& name);
/// The order of the stack with each effect in its place already.
Calls ReorderInPlace(const EffectRows& rows, const std::string& undoName);
/// The selection goes to the layer; `selected` are the indices of selected effects, from the bottom up,
/// all the others are put out of sight.
Calls SelectionPush(const EffectRows& rows, const std::vector<int>& selected);
} // namespace standin
