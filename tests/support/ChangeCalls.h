#pragma once
// The groups of tests/support/HostCalls.h as text, a line each, for the stack of a StackScene. `labels` are
// those of the stack from the top down; `index` counts from its top.

#include "tests/support/HostCalls.h"
#include "tests/support/StackScene.h"

namespace standin
{
inline TracedStack Traced(StackScene& scene, const std::string& labels)
{
    return TracedStackOf(scene, Words(labels));
}

/// A stack of which only the effect at `index` is known.
inline TracedStack Traced(const std::string& label, int index)
{
    TracedStack stack{7, std::vector<TracedEffect>(static_cast<std::size_t>(index) + 1)};
    stack.effects.back() = TracedEffect{label};
    return stack;
}

/// The same with all that the project knows of it.
inline TracedStack Traced(StackScene& scene, const std::string& label, int index)
{
    TracedStack stack = Traced(label, index);
    stack.effects.back() = TracedStackOf(scene, {label}).effects.front();
    return stack;
}

inline std::string AskIdentity(StackScene& scene, const std::string& labels, int index)
{
    return TextOf(Traced(scene, labels).AskIdentity(index));
}
inline std::string AskGroup(StackScene& scene, const std::string& labels, int index)
{
    return TextOf(Traced(scene, labels).AskGroup(index));
}
inline std::string TellGroup(StackScene& scene, const std::string& labels, int index, int group)
{
    return TextOf(Traced(scene, labels).TellGroup(index, group));
}
inline std::string ReadIdentities(StackScene& scene, const std::string& labels)
{
    return TextOf(Traced(scene, labels).ReadIdentities());
}
inline std::string ReadLayer(StackScene& scene, const std::string& labels)
{
    return TextOf(Traced(scene, labels).Read());
}
inline std::string AskMatchName(StackScene& scene, const std::string& label, int index)
{
    return TextOf(Traced(scene, label, index).ReadMatchName(index));
}
inline std::string HideCalls(StackScene& scene, const std::string& label, int index)
{
    return TextOf(Traced(scene, label, index).Hide(index));
}
inline std::string ShowCalls(StackScene& scene, const std::string& label, int index)
{
    return TextOf(Traced(scene, label, index).Show(index));
}
inline std::string TwirlOpenCalls(const std::string& label, int index)
{
    return TextOf(Traced(label, index).TwirlOpen(index));
}
inline std::string TwirlClosedCalls(const std::string& label, int index)
{
    return TextOf(Traced(label, index).TwirlClosed(index));
}
inline std::string RenameEffect(const std::string& label, int index, const std::string& name)
{
    return TextOf(Traced(label, index).Rename(index, name));
}
inline std::string SwitchEffect(const std::string& label, int index, int active)
{
    return TextOf(Traced(label, index).SwitchTo(index, active));
}
inline std::string MoveEffect(const std::string& label, int from, int to)
{
    return TextOf(Traced(label, from).Move(label, from, to));
}
} // namespace standin
