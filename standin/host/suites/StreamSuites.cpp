// "AEGP Stream Suite" 4 and 7, "AEGP Dynamic Stream Suite" 2 and 5: an effect's parameters and its
// own stream group.

#include "standin/host/core/StackChanges.h"
#include "standin/host/suites/Entry.h"
#include "standin/host/suites/Resolve.h"
#include "standin/host/suites/Suites.h"

namespace standin
{
namespace
{
using EffectArg = HandleArg<EffectRefH>;
using StreamArg = HandleArg<StreamRefH>;
using OutStream = OutHandle<StreamRefH>;

A_Err getNewEffectStreamByIndex(HostParts& parts, PluginArg id, EffectArg effect, NumberArg<A_long> index,
                                OutStream out)
{
    const bool knownPlugin = CheckPlugin(parts, id.value);
    const EffectInstance* found = ResolveEffect(parts, effect.value);
    if (!knownPlugin || found == nullptr)
        return errParameter;
    const auto count = static_cast<A_long>(found->parameters.size());
    if (index.value < 1 || index.value >= count)
    {
        parts.sensors.Report(finding::parameterIndex,
                             "Effect param_index " + std::to_string(index.value) +
                                 " is out of range: the effect has " + std::to_string(count) +
                                 " parameters with the input layer, which is index 0.");
        parts.plugins.Alarm("internal verification failure: effect param_index out of range (5027 :: 150)");
        return errParameter;
    }
    Reference reference = *parts.sensors.references.Find(effect.value);
    reference.kind = ReferenceKind::parameterStream;
    reference.parameter = index.value;
    reference.parent = effect.value;
    out.Give(parts.HandOut(reference));
    return errNone;
}

A_Err disposeStream(HostParts& parts, StreamArg stream)
{
    return DisposeStreamReference(parts, stream.value);
}

A_Err excuseDisposal(HostParts& parts, StreamArg stream)
{
    ExcuseReference(parts, stream.value);
    return errNone;
}

/// Forcing English selects among the default names, and on some hosts goes by them alone.
std::string nameOfGroup(const HostParts& parts, const EffectInstance& effect, bool forcesEnglish)
{
    const InstalledEffect* entry = parts.project.InstalledOf(effect);
    if (forcesEnglish && entry != nullptr && parts.options.forcedEnglish == ForcedEnglish::givesDefaultNames)
        return entry->defaultName;
    return parts.project.NameOf(effect);
}

A_Err getStreamName(HostParts& parts, StreamArg stream, NumberArg<A_Boolean> forceEnglish, OutText name)
{
    const ResolvedStream found = ResolveStream(parts, stream.value);
    if (!found)
        return errParameter;
    const auto parameter = static_cast<std::size_t>(found.parameter);
    const std::string text = parameter == 0 ? nameOfGroup(parts, *found.effect, forceEnglish.value != 0)
                                            : found.effect->parameters[parameter].name;
    name.Give(text, parts.options.nameLimit == NameLimit::roomy ? 127 : 31);
    return errNone;
}

A_Err getNewParentStreamRef(HostParts& parts, PluginArg id, StreamArg stream, OutStream out)
{
    const bool knownPlugin = CheckPlugin(parts, id.value);
    const ResolvedStream found = ResolveStream(parts, stream.value);
    if (!knownPlugin || !found)
        return errParameter;
    if (found.parameter == 0)
    {
        parts.sensors.Report(finding::wrongKind, "The stand-in has no stream above an effect's own group.");
        return errParameter;
    }
    Reference reference = *found.reference;
    reference.kind = ReferenceKind::groupStream;
    reference.parameter = 0;
    out.Give(parts.HandOut(reference));
    return errNone;
}

A_Err getDynamicStreamFlags(HostParts& parts, StreamArg stream, OutNumber<A_u_long> flags)
{
    const ResolvedStream found = ResolveStream(parts, stream.value);
    if (!found)
        return errParameter;
    const bool isGroup = found.parameter == 0;
    const bool hidden = isGroup ? found.effect->groupHidden
                                : found.effect->parameters[static_cast<std::size_t>(found.parameter)].hidden;
    const bool eyeball = isGroup && (found.effect->flags & effectActive) != 0;
    *flags.value = (hidden ? streamHidden : 0) | (eyeball ? streamEyeball : 0) |
                   (found.effect->revealing == Revealing::isNotWanted ? streamSkipReveal : 0);
    return errNone;
}

A_Err setDynamicStreamFlag(HostParts& parts, StreamArg stream, NumberArg<A_u_long> flag,
                           NumberArg<A_Boolean> undoable, NumberArg<A_Boolean> set)
{
    const ResolvedStream found = ResolveStream(parts, stream.value);
    if (!found)
        return errParameter;
    const bool isEyeballOfGroup = flag.value == streamEyeball && found.parameter == 0;
    if (flag.value != streamHidden && !isEyeballOfGroup)
    {
        parts.sensors.Report(finding::readOnlyFlag,
                             "The flags " + std::to_string(flag.value) + " cannot be set here.");
        return errParameter;
    }
    const bool on = set.value != 0;
    if (isEyeballOfGroup)
        SetEffectFlags(parts, found.effect->id,
                       (found.effect->flags & ~effectActive) | (on ? effectActive : 0));
    else
        SetStreamHidden(parts, found.effect->id, found.parameter, on ? Switch::on : Switch::off,
                        undoable.value != 0 ? Undoable::yes : Undoable::no);
    return errNone;
}

A_Err setStreamName(HostParts& parts, StreamArg stream, TextArg<char> name)
{
    const ResolvedStream found = ResolveStream(parts, stream.value);
    if (!found)
        return errParameter;
    if (found.parameter == 0)
    {
        RenameEffect(parts, found.effect->id, name.Text());
        return errNone;
    }
    if (parts.options.parameterRename == ParameterRename::isRefused)
        return errParameter;
    const int effectId = found.effect->id;
    const auto parameter = static_cast<std::size_t>(found.parameter);
    ChangeProject(parts, "Rename Property",
                  [&](ProjectState& project)
                  { project.FindEffect(effectId)->parameters[parameter].name = name.Text(); });
    return errNone;
}
} // namespace

SuiteDescription DescribeStreamSuite4()
{
    return SuiteBuilder<SuiteId::stream4, 20>("AEGP Stream Suite", 4, "AEGP_StreamSuite1")
        .Slot<4, getNewEffectStreamByIndex>("AEGP_GetNewEffectStreamByIndex", Access::reads)
        .Slot<6, disposeStream, excuseDisposal>("AEGP_DisposeStream", Access::writesHost)
        .Slot<7, getStreamName>("AEGP_GetStreamName", Access::reads)
        .Done();
}

SuiteDescription DescribeStreamSuite7()
{
    return SuiteBuilder<SuiteId::stream7, 22>("AEGP Stream Suite", 7, "AEGP_StreamSuite2")
        .Slot<7, disposeStream, excuseDisposal>("AEGP_DisposeStream", Access::writesHost)
        .Done();
}

SuiteDescription DescribeDynamicStreamSuite2()
{
    return SuiteBuilder<SuiteId::dynamicStream2, 17>("AEGP Dynamic Stream Suite", 2,
                                                     "AEGP_DynamicStreamSuite2")
        .Slot<4, getDynamicStreamFlags>("AEGP_GetDynamicStreamFlags", Access::reads)
        .Slot<5, setDynamicStreamFlag>("AEGP_SetDynamicStreamFlag", Access::writesProject)
        .Slot<11, setStreamName>("AEGP_SetStreamName", Access::writesProject)
        .Slot<15, getNewParentStreamRef>("AEGP_GetNewParentStreamRef", Access::reads)
        .Done();
}

SuiteDescription DescribeDynamicStreamSuite5()
{
    return SuiteBuilder<SuiteId::dynamicStream5, 26>("AEGP Dynamic Stream Suite", 5,
                                                     "AEGP_DynamicStreamSuite4")
        .Slot<6, setDynamicStreamFlag>("AEGP_SetDynamicStreamFlag", Access::writesProject)
        .Done();
}
} // namespace standin
