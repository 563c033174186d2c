#include "standin/script/record/ScenarioRecording.h"

#include "standin/host/bundle/EffectModule.h"
#include "standin/host/core/HostParts.h"
#include "standin/script/record/EffectNames.h"
#include "standin/script/record/Shown.h"

#include <filesystem>
#include <stdexcept>

namespace standin::script
{
ScenarioRecording::ScenarioRecording(Host& owner, const std::string& file)
    : host(owner), stream(file, std::ios::trunc), writer(stream)
{
    if (!stream)
        throw std::runtime_error(file + ": cannot be written");
}

void ScenarioRecording::Line(const std::string& pattern, const std::vector<std::string>& blanks)
{
    if (beforeLine)
        beforeLine();
    PanelLine(pattern, blanks);
}

/// A name that cannot be written, or a row that cannot be read, costs its line and no more.
void ScenarioRecording::PanelLine(const std::string& pattern, const std::vector<std::string>& blanks)
{
    try
    {
        writer.Line(pattern, blanks);
    }
    catch (const std::exception& error)
    {
        Comment(error.what());
    }
}

void ScenarioRecording::Comment(const std::string& text)
{
    std::string line = text;
    for (char& c : line)
        c = c == '\n' ? ' ' : c;
    writer.Comment(line);
    stream.flush();
}

void ScenarioRecording::Begin()
{
    Comment("Recorded by standin-desktop.");
    for (const InstalledEffect& effect : host.InstalledEffects())
        if (const std::string file = ModuleFileOf(effect); !file.empty())
            Line("install the effect in TEXT", {std::filesystem::absolute(file).string()});
    for (const Item& one : host.State().items)
        item(one);
    selection();
    writer.BlankLine();
    Line("open the panel");
    Line("expect no alerts");
    writer.BlankLine();
    stream.flush();
}

void ScenarioRecording::item(const Item& one)
{
    if (one.kind == ItemKind::footage)
        return Line("footage TEXT", {one.name});
    if (one.kind != ItemKind::composition)
        return Comment("a folder: " + one.name);
    Line("composition TEXT", {one.name});
    for (const Layer& each : host.State().layers)
        if (each.compId == one.id)
            layer(each);
}

void ScenarioRecording::layer(const Layer& one)
{
    Line("layer TEXT", {one.name});
    // Each effect stands at the end of those before it, so that its name says which it is.
    for (const EffectInstance& each : one.effects)
        effect(each);
}

void ScenarioRecording::effect(const EffectInstance& one)
{
    const InstalledEffect* kind = host.FindInstalled(one.key);
    if (kind == nullptr)
        return Comment("an effect that is not installed");
    if (one.customName.has_value())
        Line("effect TEXT named TEXT", {kind->matchName, *one.customName});
    else
        Line("effect TEXT", {kind->matchName});
    const std::string name = ScenarioNameOf(host, one.id);
    if (one.family.group != 0)
        Line("TEXT is in group NUMBER", {name, std::to_string(one.family.group)});
    if ((one.flags & effectActive) == 0)
        Line("TEXT is off", {name});
}

void ScenarioRecording::selection()
{
    const Shown shown = ShowHost(host);
    if (!shown.compositionName.empty())
        Line("open composition TEXT", {shown.compositionName});
    std::vector<std::string> names;
    for (const ShownLayer& each : shown.layers)
        if (each.isSelected)
            names.push_back(each.name);
    if (names.empty())
        Line("select no layer");
    else
        Line(names.size() == 1 ? "select layer TEXT" : "select layers TEXTS", names);
}

void ScenarioRecording::End()
{
    const Shown shown = ShowHost(host);
    std::vector<std::string> names;
    for (const ShownEffect& each : shown.effects)
        names.push_back(each.name);
    if (shown.activeLayer == 0)
        return;
    Line(names.empty() ? "expect empty stack" : "expect stack TEXTS", names);
    for (const ShownEffect& each : shown.effects)
    {
        const std::string name = ScenarioNameOf(host, each.id);
        Line(each.isOn ? "expect TEXT is on" : "expect TEXT is off", {name});
        if (each.group > 0)
            Line("expect TEXT in group NUMBER", {name, std::to_string(each.group)});
    }
}
} // namespace standin::script
