#include "standin/host/project/FieldReader.h"
#include "standin/host/project/ProjectFile.h"

#include "standin/host/core/StackChanges.h"

#include <algorithm>
#include <optional>

namespace standin
{
namespace
{
using nlohmann::json;

/// JSON itself lets a field come twice, and a parser keeps one of the two.
json parseWithoutDoubles(const std::string& text)
{
    std::vector<std::set<std::string>> open;
    const json::parser_callback_t check = [&](int, json::parse_event_t event, json& parsed)
    {
        if (event == json::parse_event_t::object_start)
            open.emplace_back();
        else if (event == json::parse_event_t::object_end)
            open.pop_back();
        else if (event == json::parse_event_t::key && !open.back().insert(parsed.get<std::string>()).second)
            throw ProjectFileError("the field \"" + parsed.get<std::string>() +
                                   "\" stands twice in one object");
        return true;
    };
    try
    {
        return json::parse(text, check);
    }
    catch (const json::parse_error& error)
    {
        const std::size_t end = std::min(error.byte, text.size());
        const auto line = 1 + std::count(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(end), '\n');
        throw ProjectFileError("this is no JSON from line " + std::to_string(line) + " on");
    }
    catch (const json::out_of_range&)
    {
        throw ProjectFileError("a number is too large for JSON");
    }
}

/// One of the two hexadecimal digits of a byte, or -1.
int digitOf(char c)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    return c >= 'a' && c <= 'f' ? c - 'a' + 10 : -1;
}

std::optional<Identity> identityOf(const std::string& text)
{
    Identity identity{};
    std::size_t digits = 0;
    for (const char c : text)
    {
        if (c == '-')
            continue;
        const int digit = digitOf(c);
        if (digit < 0 || digits == 32)
            return std::nullopt;
        identity[digits / 2] = static_cast<std::uint8_t>(identity[digits / 2] * 16 + digit);
        ++digits;
    }
    return TextOf(identity) == text ? std::optional(identity) : std::nullopt;
}

std::optional<std::vector<std::uint8_t>> bytesOf(const std::string& text)
{
    std::vector<std::uint8_t> bytes(text.size() / 2);
    for (std::size_t i = 0; i < text.size(); ++i)
    {
        const int digit = digitOf(text[i]);
        if (digit < 0 || text.size() % 2 != 0)
            return std::nullopt;
        bytes[i / 2] = static_cast<std::uint8_t>(bytes[i / 2] * 16 + digit);
    }
    return bytes;
}

class Reader
{
public:
    explicit Reader(const std::vector<InstalledEffect>& known) : installed(known) {}

    ProjectFile Read(FieldReader& fields)
    {
        if (fields.Text("format") != "stand-in project")
            fields.Fail("format", "this is no project of the stand-in host");
        if (fields.Integer<int>("version") != 1)
            fields.Fail("version", "only version 1 is known");
        fields.Each("items", [this](FieldReader& item) { readItem(item); });
        fields.Each("layers", [this](FieldReader& layer) { readLayer(layer); });
        if (fields.Has("view"))
            readView(fields.Inner("view"));
        fields.CheckNothingElse();
        return std::move(project);
    }

private:
    int readNewId(FieldReader& fields, std::set<int>& taken)
    {
        const int id = fields.Id("id");
        if (!taken.insert(id).second)
            fields.Fail("id", "the id " + std::to_string(id) + " is taken already");
        return id;
    }

    void readItem(FieldReader& fields)
    {
        Item item;
        item.id = readNewId(fields, items);
        item.name = fields.Text("name");
        const std::string kind = fields.Text("kind");
        if (kind == "footage")
            item.kind = ItemKind::footage;
        else if (kind == "folder")
            item.kind = ItemKind::folder;
        else if (kind != "composition")
            fields.Fail("kind", "\"" + kind + "\" is none of composition, footage, folder");
        project.state.items.push_back(std::move(item));
    }

    bool isComposition(int itemId) const
    {
        const Item* item = project.state.FindItem(itemId);
        return item != nullptr && item->kind == ItemKind::composition;
    }

    void readLayer(FieldReader& fields)
    {
        Layer layer;
        layer.id = readNewId(fields, layers);
        layer.name = fields.Text("name");
        layer.compId = fields.Id("composition");
        if (!isComposition(layer.compId))
            fields.Fail("composition", "no composition has the id " + std::to_string(layer.compId));
        if (fields.Has("startTime"))
            layer.startTime = fields.Integer<A_long>("startTime");
        fields.Each("effects", [&](FieldReader& effect) { layer.effects.push_back(readEffect(effect)); });
        project.state.layers.push_back(std::move(layer));
    }

    EffectInstance readEffect(FieldReader& fields)
    {
        const InstalledEffect& entry = installedOf(fields);
        EffectInstance effect;
        effect.id = readNewId(fields, effects);
        effect.label = fields.Has("label") ? fields.Text("label") : "e" + std::to_string(effect.id);
        if (effect.label.empty() || !labels.insert(effect.label).second)
            fields.Fail("label", "\"" + effect.label + "\" is empty or taken already");
        effect.key = entry.key;
        if (fields.Has("name"))
            effect.customName = fields.Text("name");
        if (fields.Has("flags"))
            effect.flags = fields.Integer<A_long>("flags");
        effect.groupHidden = fields.Has("hidden") && fields.Flag("hidden");
        if (fields.Has("asksForNoReveal") && fields.Flag("asksForNoReveal"))
            effect.revealing = Revealing::isNotWanted;
        readFamily(fields, effect.family);
        readParameters(fields, entry, effect);
        return effect;
    }

    const InstalledEffect& installedOf(FieldReader& fields)
    {
        const std::string matchName = fields.Text("effect");
        for (const InstalledEffect& entry : installed)
            if (entry.matchName == matchName)
                return entry;
        fields.Fail("effect", "no effect \"" + matchName + "\" is installed");
    }

    static void readFamily(FieldReader& fields, FamilyData& family)
    {
        if (fields.Has("group"))
            family.group = fields.Integer<std::int16_t>("group");
        if (fields.Has("rigid") && fields.Flag("rigid"))
            family.rigidity = Rigidity::rigid;
        if (fields.Has("kept"))
        {
            const auto kept = bytesOf(fields.Text("kept"));
            if (!kept)
                fields.Fail("kept", "bytes in hexadecimal digits belong here");
            family.kept = *kept;
        }
        if (!fields.Has("identity"))
            return;
        const std::optional<Identity> identity = identityOf(fields.Text("identity"));
        if (!identity)
            fields.Fail("identity", "an identity reads like 0123abcd-0123-abcd-0123-abcd0123abcd");
        family.uuid = *identity;
    }

    static void readParameters(FieldReader& fields, const InstalledEffect& entry, EffectInstance& effect)
    {
        if (!fields.Has("parameters"))
        {
            effect.parameters = FreshParameters(entry);
            return;
        }
        fields.Each("parameters",
                    [&](FieldReader& parameter)
                    {
                        Parameter read;
                        read.name = parameter.Text("name");
                        read.hidden = parameter.Has("hidden") && parameter.Flag("hidden");
                        effect.parameters.push_back(std::move(read));
                    });
        if (effect.parameters.empty())
            fields.Fail("parameters", "the input layer is missing, which every effect has");
    }

    void readView(FieldReader fields)
    {
        if (fields.Has("front"))
            project.frontComp = fields.Id("front");
        if (project.frontComp != 0 && !isComposition(project.frontComp))
            fields.Fail("front", "no composition has the id " + std::to_string(project.frontComp));
        if (fields.Has("selectedLayers"))
            project.selectedLayers = existingIds(fields, "selectedLayers", layers);
        if (fields.Has("openEffects"))
            project.openEffects = existingIds(fields, "openEffects", effects);
        std::sort(project.openEffects.begin(), project.openEffects.end());
        fields.CheckNothingElse();
    }

    static std::vector<int> existingIds(FieldReader& fields, const char* field, const std::set<int>& existing)
    {
        std::vector<int> ids = fields.Ids(field);
        for (const int id : ids)
            if (existing.count(id) == 0)
                fields.Fail(field, "nothing here has the id " + std::to_string(id));
        return ids;
    }

    const std::vector<InstalledEffect>& installed;
    ProjectFile project;
    std::set<int> items;
    std::set<int> layers;
    std::set<int> effects;
    std::set<std::string> labels;
};
} // namespace

ProjectFile ReadProject(const std::string& text, const std::vector<InstalledEffect>& installed,
                        const std::string& source)
{
    try
    {
        const json parsed = parseWithoutDoubles(text);
        FieldReader fields(parsed, "");
        return Reader(installed).Read(fields);
    }
    catch (const ProjectFileError& error)
    {
        throw ProjectFileError(source + ": " + error.what());
    }
}
} // namespace standin
