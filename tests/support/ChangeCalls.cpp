#include "tests/support/ChangeCalls.h"

#include <initializer_list>

namespace standin
{
namespace
{
constexpr const char* zeroUuid = "00000000-0000-0000-0000-000000000000";

std::string lines(std::initializer_list<std::string> list)
{
    std::string text;
    for (const std::string& line : list)
        text += line + "\n";
    return text;
}

std::string number(int value) { return std::to_string(value); }

bool isOutside(const std::string& label) { return label[0] == 'Z'; }

/// One message to the effect at `index`; `record` is what goes out, `answer` what comes back.
std::string message(StackScene& scene, const std::string& labels, int index, const std::string& record,
                    const std::string& answer)
{
    const std::vector<std::string> stack = Words(labels);
    const std::string label = stack.at(static_cast<std::size_t>(index));
    const std::string count = number(static_cast<int>(stack.size()));
    const std::string flags = number(scene.host.Effect(label).flags);
    return lines({
        "Layer 5 AEGP_ConvertLayerToCompTime(layer 1, time 0/100) -> time 0/100",
        "Effect 1 AEGP_GetLayerNumEffects(layer 1) -> " + count,
        "Effect 1 AEGP_GetLayerEffectByIndex(id 7, layer 1, " + number(index) + ") -> effect " + label,
        "Effect 1 AEGP_GetEffectFlags(effect " + label + ") -> " + flags,
        "Effect 3 AEGP_EffectCallGeneric(id 7, effect " + label + ", time 0/100, 17, " + record + ")" +
            answer,
        "Effect 3 AEGP_DisposeEffect(effect " + label + ")",
    });
}

/// The common head of all calls on an effect's streams.
std::string takeStreams(const std::string& label, int index)
{
    return lines({
        "Effect 1 AEGP_GetLayerEffectByIndex(id 7, layer 1, " + number(index) + ") -> effect " + label,
        "Stream 4 AEGP_GetNewEffectStreamByIndex(id 7, effect " + label + ", 1) -> stream " + label + ".1",
        "DynamicStream 2 AEGP_GetNewParentStreamRef(id 7, stream " + label + ".1) -> stream " + label,
    });
}

std::string disposeAll(const std::string& label)
{
    return lines({
        "Stream 7 AEGP_DisposeStream(stream " + label + ".1)",
        "Stream 7 AEGP_DisposeStream(stream " + label + ")",
        "Effect 1 AEGP_DisposeEffect(effect " + label + ")",
    });
}

std::string paramFlags(StackScene& scene, const std::string& label)
{
    const char* flags = scene.host.Effect(label).parameters.at(1).hidden ? "2" : "0";
    return "DynamicStream 2 AEGP_GetDynamicStreamFlags(stream " + label + ".1) -> " + flags + "\n";
}
} // namespace

std::string AskIdentity(StackScene& scene, const std::string& labels, int index)
{
    const std::string label = Words(labels).at(static_cast<std::size_t>(index));
    const std::string uuid = isOutside(label) ? zeroUuid : scene.Uuid(label);
    return message(scene, labels, index, "VORT 5 uuid 00000000-0000-0000-0000-000000000000",
                   " -> uuid " + uuid);
}

std::string AskGroup(StackScene& scene, const std::string& labels, int index)
{
    const std::string label = Words(labels).at(static_cast<std::size_t>(index));
    const int group = isOutside(label) ? -1 : scene.host.Effect(label).family.group;
    return message(scene, labels, index, "VORT 1 group -1", " -> group " + number(group));
}

std::string TellGroup(StackScene& scene, const std::string& labels, int index, int group)
{
    return message(scene, labels, index, "VORT 3 group " + number(group), "");
}

std::string ReadIdentities(StackScene& scene, const std::string& labels)
{
    const int count = static_cast<int>(Words(labels).size());
    std::string text = "Effect 1 AEGP_GetLayerNumEffects(layer 1) -> " + number(count) + "\n";
    for (int index = 0; index < count; ++index)
        text += AskIdentity(scene, labels, index);
    return text;
}

std::string ReadLayer(StackScene& scene, const std::string& labels)
{
    const std::vector<std::string> stack = Words(labels);
    const int count = static_cast<int>(stack.size());
    std::string text = "Effect 1 AEGP_GetLayerNumEffects(layer 1) -> " + number(count) + "\n";
    for (int index = 0; index < count; ++index)
        text += AskGroup(scene, labels, index);
    for (int index = 0; index < count; ++index)
        text += AskIdentity(scene, labels, index);
    for (int index = 0; index < count; ++index)
    {
        const std::string& label = stack[static_cast<std::size_t>(index)];
        const InstalledEffect& installed = *scene.host.FindInstalled(scene.host.Effect(label).key);
        text += lines({
            "Effect 1 AEGP_GetLayerEffectByIndex(id 7, layer 1, " + number(index) + ") -> effect " + label,
            "Effect 1 AEGP_GetInstalledKeyFromLayerEffect(effect " + label + ") -> " + number(installed.key),
            "Effect 1 AEGP_GetEffectMatchName(" + number(installed.key) + ") -> \"" + installed.matchName +
                "\"",
            "Stream 4 AEGP_GetNewEffectStreamByIndex(id 7, effect " + label + ", 1) -> stream " + label +
                ".1",
            "DynamicStream 2 AEGP_GetNewParentStreamRef(id 7, stream " + label + ".1) -> stream " + label,
            "Effect 1 AEGP_GetEffectFlags(effect " + label + ") -> " + number(scene.host.Effect(label).flags),
            "Stream 4 AEGP_GetStreamName(stream " + label + ", 1) -> \"" + scene.host.NameOf(label) + "\"",
        });
        text += disposeAll(label);
    }
    return text;
}

std::string RenameEffect(const std::string& label, int index, const std::string& name)
{
    return "Utility 3 AEGP_StartUndoGroup(\"Rename Effect(s)\")\n" + takeStreams(label, index) +
           lines({
               "DynamicStream 2 AEGP_SetStreamName(stream " + label + ", \"" + name + "\")",
               "Utility 3 AEGP_EndUndoGroup()",
           }) +
           disposeAll(label);
}

std::string SwitchEffect(const std::string& label, int index, int active)
{
    return lines({
        "Effect 1 AEGP_GetLayerEffectByIndex(id 7, layer 1, " + number(index) + ") -> effect " + label,
        "Effect 1 AEGP_SetEffectFlags(effect " + label + ", 1, " + number(active) + ")",
        "Effect 1 AEGP_DisposeEffect(effect " + label + ")",
    });
}

std::string MoveEffect(const std::string& label, int from, int to)
{
    return lines({
        "Effect 1 AEGP_GetLayerEffectByIndex(id 7, layer 1, " + number(from) + ") -> effect " + label,
        "Effect 1 AEGP_ReorderEffect(effect " + label + ", " + number(to) + ")",
        "Effect 1 AEGP_DisposeEffect(effect " + label + ")",
    });
}

std::string AskMatchName(StackScene& scene, const std::string& label, int index)
{
    const InstalledEffect& installed = *scene.host.FindInstalled(scene.host.Effect(label).key);
    const std::string key = number(installed.key);
    return lines({
        "Effect 1 AEGP_GetLayerEffectByIndex(id 7, layer 1, " + number(index) + ") -> effect " + label,
        "Effect 1 AEGP_GetInstalledKeyFromLayerEffect(effect " + label + ") -> " + key,
        "Effect 1 AEGP_GetEffectMatchName(" + key + ") -> \"" + installed.matchName + "\"",
        "Effect 1 AEGP_DisposeEffect(effect " + label + ")",
    });
}

std::string HideCalls(StackScene& scene, const std::string& label, int index)
{
    return "Utility 3 AEGP_StartUndoGroup(\"\")\n" + takeStreams(label, index) + paramFlags(scene, label) +
           lines({
               "DynamicStream 5 AEGP_SetDynamicStreamFlag(stream " + label + ", 2, 0, 0)",
               "DynamicStream 5 AEGP_SetDynamicStreamFlag(stream " + label + ", 2, 0, 1)",
               "Utility 3 AEGP_EndUndoGroup()",
           }) +
           disposeAll(label);
}

std::string ShowCalls(StackScene& scene, const std::string& label, int index)
{
    const std::string wasHidden = scene.host.Effect(label).parameters.at(1).hidden ? "1" : "0";
    return "Utility 3 AEGP_StartUndoGroup(\"\")\n" + takeStreams(label, index) + paramFlags(scene, label) +
           lines({
               "DynamicStream 2 AEGP_SetDynamicStreamFlag(stream " + label + ", 2, 0, 0)",
               "DynamicStream 2 AEGP_SetDynamicStreamFlag(stream " + label + ".1, 2, 0, 1)",
               "DynamicStream 2 AEGP_SetDynamicStreamFlag(stream " + label + ".1, 2, 0, 0)",
               "DynamicStream 2 AEGP_SetDynamicStreamFlag(stream " + label + ".1, 2, 0, " + wasHidden + ")",
               "Utility 3 AEGP_EndUndoGroup()",
           }) +
           disposeAll(label);
}

std::string TwirlOpenCalls(const std::string& label, int index)
{
    return "Utility 3 AEGP_StartUndoGroup(\"\")\n" + takeStreams(label, index) +
           lines({
               "DynamicStream 2 AEGP_SetDynamicStreamFlag(stream " + label + ".1, 2, 0, 1)",
               "DynamicStream 2 AEGP_SetDynamicStreamFlag(stream " + label + ".1, 2, 0, 0)",
               "Utility 3 AEGP_EndUndoGroup()",
           }) +
           disposeAll(label);
}

std::string TwirlClosedCalls(const std::string& label, int index)
{
    return "Utility 3 AEGP_StartUndoGroup(\"\")\n" + takeStreams(label, index) +
           lines({
               "DynamicStream 2 AEGP_SetDynamicStreamFlag(stream " + label + ", 2, 0, 1)",
               "DynamicStream 2 AEGP_SetDynamicStreamFlag(stream " + label + ", 2, 0, 0)",
               "Utility 3 AEGP_EndUndoGroup()",
           }) +
           disposeAll(label);
}
} // namespace standin
