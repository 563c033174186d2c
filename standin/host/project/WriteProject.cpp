#include "standin/host/project/ProjectFile.h"

#include <algorithm>

#include <nlohmann/json.hpp>

namespace standin
{
namespace
{
using nlohmann::ordered_json;

const char* textOf(ItemKind kind)
{
    switch (kind)
    {
    case ItemKind::footage:
        return "footage";
    case ItemKind::folder:
        return "folder";
    case ItemKind::composition:
        break;
    }
    return "composition";
}

const InstalledEffect& installedOf(const EffectInstance& effect,
                                   const std::vector<InstalledEffect>& installed)
{
    const auto found = std::find_if(installed.begin(), installed.end(),
                                    [&](const InstalledEffect& entry) { return entry.key == effect.key; });
    if (found == installed.end())
        throw ProjectFileError("the effect " + effect.label + " is not installed");
    return *found;
}

std::string hexOf(const std::vector<std::uint8_t>& bytes)
{
    constexpr const char* digits = "0123456789abcdef";
    std::string text;
    for (const std::uint8_t byte : bytes)
        text.append(1, digits[byte / 16]).append(1, digits[byte % 16]);
    return text;
}

ordered_json jsonOf(const std::vector<Parameter>& parameters)
{
    ordered_json list = ordered_json::array();
    for (const Parameter& parameter : parameters)
        list.push_back({{"name", parameter.name}, {"hidden", parameter.hidden}});
    return list;
}

ordered_json jsonOf(const EffectInstance& effect, const std::vector<InstalledEffect>& installed)
{
    ordered_json json{
        {"id", effect.id}, {"label", effect.label}, {"effect", installedOf(effect, installed).matchName}};
    if (effect.customName)
        json["name"] = *effect.customName;
    json["flags"] = effect.flags;
    json["hidden"] = effect.groupHidden;
    if (effect.revealing == Revealing::isNotWanted)
        json["asksForNoReveal"] = true;
    json["group"] = effect.family.group;
    json["rigid"] = effect.family.rigidity == Rigidity::rigid;
    json["identity"] = TextOf(effect.family.uuid);
    if (!effect.family.kept.empty())
        json["kept"] = hexOf(effect.family.kept);
    json["parameters"] = jsonOf(effect.parameters);
    return json;
}

ordered_json jsonOf(const Layer& layer, const std::vector<InstalledEffect>& installed)
{
    ordered_json effects = ordered_json::array();
    for (const EffectInstance& effect : layer.effects)
        effects.push_back(jsonOf(effect, installed));
    return {{"id", layer.id},
            {"composition", layer.compId},
            {"name", layer.name},
            {"startTime", layer.startTime},
            {"effects", std::move(effects)}};
}

ordered_json viewOf(const ProjectFile& project)
{
    ordered_json view = ordered_json::object();
    if (project.frontComp != 0)
        view["front"] = project.frontComp;
    view["selectedLayers"] = project.selectedLayers;
    view["openEffects"] = project.openEffects;
    return view;
}
} // namespace

std::string WriteProject(const ProjectFile& project, const std::vector<InstalledEffect>& installed)
{
    ordered_json json{{"format", "stand-in project"}, {"version", 1}};
    json["items"] = ordered_json::array();
    for (const Item& item : project.state.items)
        json["items"].push_back({{"id", item.id}, {"kind", textOf(item.kind)}, {"name", item.name}});
    json["layers"] = ordered_json::array();
    for (const Layer& layer : project.state.layers)
        json["layers"].push_back(jsonOf(layer, installed));
    json["view"] = viewOf(project);
    try
    {
        return json.dump(2) + "\n";
    }
    catch (const nlohmann::json::type_error&)
    {
        throw ProjectFileError("a name in the project is not UTF-8, and JSON holds nothing else");
    }
}
} // namespace standin
