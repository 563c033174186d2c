#include "tests/support/HostCalls.h"

#include <algorithm>
#include <sstream>
#include <stdexcept>

namespace standin
{
namespace
{
std::string number(int value) { return std::to_string(value); }

std::string disposeOfEffect(const std::string& label)
{
    return "Effect 1 AEGP_DisposeEffect(effect " + label + ")";
}

std::string hiddenFlag(int suite, const std::string& stream, const std::string& hidden)
{
    return "DynamicStream " + number(suite) + " AEGP_SetDynamicStreamFlag(stream " + stream + ", 2, 0, " +
           hidden + ")";
}

std::string readFlag(const TracedEffect& effect)
{
    return "DynamicStream 2 AEGP_GetDynamicStreamFlags(stream " + effect.label + ".1) -> " +
           (effect.parameterHidden ? "2" : "0");
}
} // namespace

Calls Sequence(const std::vector<Calls>& groups)
{
    Calls all;
    for (const Calls& group : groups)
        all.insert(all.end(), group.begin(), group.end());
    return all;
}

std::string TextOf(const Calls& calls)
{
    std::string text;
    for (const std::string& call : calls)
        text += call + "\n";
    return text;
}

std::vector<std::string> Words(const std::string& text)
{
    std::istringstream stream(text);
    std::vector<std::string> words;
    for (std::string word; stream >> word;)
        words.push_back(word);
    return words;
}

int TracedStack::IndexOf(const std::string& label) const
{
    const auto found = std::find_if(effects.begin(), effects.end(),
                                    [&](const TracedEffect& effect) { return effect.label == label; });
    if (found == effects.end())
        throw std::logic_error("no effect goes by " + label);
    return static_cast<int>(found - effects.begin());
}

Calls TracedStack::Count() const
{
    return {"Effect 1 AEGP_GetLayerNumEffects(layer 1) -> " + std::to_string(effects.size())};
}

std::string TracedStack::take(const std::string& label, int index, int suite) const
{
    return "Effect " + number(suite) + " AEGP_GetLayerEffectByIndex(id " + number(pluginId) + ", layer 1, " +
           number(index) + ") -> effect " + label;
}

Calls TracedStack::message(int index, const std::string& sent, const std::string& answer) const
{
    const std::string effect = "effect " + at(index).label;
    return Sequence({{"Layer 5 AEGP_ConvertLayerToCompTime(layer 1, time 0/100) -> time 0/100"},
                     Count(),
                     {take(at(index).label, index),
                      "Effect 1 AEGP_GetEffectFlags(" + effect + ") -> " + number(at(index).flags),
                      "Effect 3 AEGP_EffectCallGeneric(id " + number(pluginId) + ", " + effect +
                          ", time 0/100, 17, VORT " + sent + ")" + answer,
                      "Effect 3 AEGP_DisposeEffect(" + effect + ")"}});
}

Calls TracedStack::AskGroup(int index) const
{
    return message(index, "1 group -1", " -> group " + number(at(index).group));
}

Calls TracedStack::AskIdentity(int index) const
{
    return message(index, std::string("5 uuid ") + zeroUuid, " -> uuid " + at(index).uuid);
}

Calls TracedStack::TellGroup(int index, int group) const
{
    return message(index, "3 group " + number(group), "");
}

Calls TracedStack::ReadIdentities() const
{
    std::vector<Calls> groups = {Count()};
    for (int index = 0; index < static_cast<int>(effects.size()); ++index)
        groups.push_back(AskIdentity(index));
    return Sequence(groups);
}

Calls TracedStack::takeStreams(int index) const
{
    const std::string& label = at(index).label;
    return {"Stream 4 AEGP_GetNewEffectStreamByIndex(id " + number(pluginId) + ", effect " + label +
                ", 1) -> stream " + label + ".1",
            "DynamicStream 2 AEGP_GetNewParentStreamRef(id " + number(pluginId) + ", stream " + label +
                ".1) -> stream " + label};
}

Calls TracedStack::disposeOfAll(int index) const
{
    const std::string& label = at(index).label;
    return {"Stream 7 AEGP_DisposeStream(stream " + label + ".1)",
            "Stream 7 AEGP_DisposeStream(stream " + label + ")", disposeOfEffect(label)};
}

Calls TracedStack::ReadMatchName(int index) const
{
    const TracedEffect& effect = at(index);
    return {take(effect.label, index),
            "Effect 1 AEGP_GetInstalledKeyFromLayerEffect(effect " + effect.label + ") -> " +
                number(effect.key),
            "Effect 1 AEGP_GetEffectMatchName(" + number(effect.key) + ") -> \"" + effect.matchName + "\"",
            disposeOfEffect(effect.label)};
}

Calls TracedStack::ReadEffect(int index) const
{
    const TracedEffect& effect = at(index);
    Calls head = ReadMatchName(index);
    head.pop_back();
    return Sequence(
        {head,
         takeStreams(index),
         {"Effect 1 AEGP_GetEffectFlags(effect " + effect.label + ") -> " + number(effect.flags),
          "Stream 4 AEGP_GetStreamName(stream " + effect.label + ", 1) -> \"" + effect.name + "\""},
         disposeOfAll(index)});
}

Calls TracedStack::Read() const
{
    const int count = static_cast<int>(effects.size());
    std::vector<Calls> groups = {Count()};
    for (int index = 0; index < count; ++index)
        groups.push_back(AskGroup(index));
    for (int index = 0; index < count; ++index)
        groups.push_back(AskIdentity(index));
    for (int index = 0; index < count; ++index)
        groups.push_back(ReadEffect(index));
    return Sequence(groups);
}

Calls TracedStack::inUndoGroup(const std::string& undoName, int index, const Calls& calls) const
{
    return Sequence({{"Utility 3 AEGP_StartUndoGroup(\"" + undoName + "\")", take(at(index).label, index)},
                     takeStreams(index),
                     calls,
                     {"Utility 3 AEGP_EndUndoGroup()"},
                     disposeOfAll(index)});
}

Calls TracedStack::Rename(int index, const std::string& name) const
{
    return inUndoGroup(
        "Rename Effect(s)", index,
        {"DynamicStream 2 AEGP_SetStreamName(stream " + at(index).label + ", \"" + name + "\")"});
}

Calls TracedStack::SwitchTo(int index, int active) const
{
    const std::string& label = at(index).label;
    return {take(label, index),
            "Effect 1 AEGP_SetEffectFlags(effect " + label + ", 1, " + number(active) + ")",
            disposeOfEffect(label)};
}

Calls TracedStack::Move(const std::string& label, int from, int to) const
{
    return {take(label, from), "Effect 1 AEGP_ReorderEffect(effect " + label + ", " + number(to) + ")",
            disposeOfEffect(label)};
}

Calls TracedStack::Hide(int index) const
{
    const std::string& stream = at(index).label;
    return inUndoGroup("", index,
                       {readFlag(at(index)), hiddenFlag(5, stream, "0"), hiddenFlag(5, stream, "1")});
}

Calls TracedStack::Show(int index) const
{
    const std::string& stream = at(index).label;
    const std::string parameter = stream + ".1";
    const char* wasHidden = at(index).parameterHidden ? "1" : "0";
    return inUndoGroup("", index,
                       {readFlag(at(index)), hiddenFlag(2, stream, "0"), hiddenFlag(2, parameter, "1"),
                        hiddenFlag(2, parameter, "0"), hiddenFlag(2, parameter, wasHidden)});
}

Calls TracedStack::TwirlOpen(int index) const
{
    const std::string parameter = at(index).label + ".1";
    return inUndoGroup("", index, {hiddenFlag(2, parameter, "1"), hiddenFlag(2, parameter, "0")});
}

Calls TracedStack::TwirlClosed(int index) const
{
    const std::string& stream = at(index).label;
    return inUndoGroup("", index, {hiddenFlag(2, stream, "1"), hiddenFlag(2, stream, "0")});
}

Calls TracedStack::Order(const std::string& undoName, const std::string& moves) const
{
    Calls calls = {"Utility 3 AEGP_StartUndoGroup(\"" + undoName + "\")"};
    const std::vector<std::string> words = Words(moves);
    for (std::size_t i = 0; i + 1 < words.size(); i += 2)
    {
        const std::string& places = words[i + 1];
        const std::size_t refused = places.find('=');
        const Calls move = Move(words[i], std::stoi(places), std::stoi(places.substr(places.find('>') + 1)));
        calls.insert(calls.end(), move.begin(), move.end());
        if (refused != std::string::npos)
            calls[calls.size() - 2] += " = " + places.substr(refused + 1);
    }
    calls.push_back("Utility 3 AEGP_EndUndoGroup()");
    return calls;
}

Calls TracedStack::Delete(const std::string& moves) const
{
    Calls calls = {"Utility 3 AEGP_StartUndoGroup(\"Delete Effect(s)\")"};
    const std::vector<std::string> words = Words(moves);
    const auto add = [&](const std::string& label, int index, const std::string& change)
    {
        calls.push_back(take(label, index, 3));
        calls.push_back("Effect 3 " + change);
        calls.push_back("Effect 3 AEGP_DisposeEffect(effect " + label + ")");
    };
    for (std::size_t i = 0; i + 1 < words.size(); i += 2)
    {
        const std::string& places = words[i + 1];
        add(words[i], std::stoi(places),
            "AEGP_ReorderEffect(effect " + words[i] + ", " + places.substr(places.find('>') + 1) + ")");
    }
    for (std::size_t i = 0; i < words.size(); i += 2)
        add(words[i], 0, "AEGP_DeleteLayerEffect(effect " + words[i] + ")");
    calls.push_back("Utility 3 AEGP_EndUndoGroup()");
    return calls;
}

Calls TracedStack::OrderInPlace(const std::string& undoName) const
{
    std::string moves;
    for (std::size_t i = 0; i < effects.size(); ++i)
        moves += effects[i].label + " " + std::to_string(i) + ">" + std::to_string(i) + " ";
    return Order(undoName, moves);
}

Calls TracedStack::Classify() const
{
    std::vector<Calls> groups = {Count(), {"Layer 5 AEGP_GetLayerParentComp(layer 1) -> comp 101"}};
    for (std::size_t i = 0; i < effects.size(); ++i)
    {
        if (effects[i].uuid != zeroUuid)
            groups.push_back(ReadMatchName(static_cast<int>(i)));
    }
    return Sequence(groups);
}

Calls TracedStack::Touch(const std::string& script) const
{
    std::vector<Calls> groups;
    for (const std::string& word : Words(script))
    {
        const int index = IndexOf(word.substr(1));
        const char sign = word.front();
        groups.push_back(sign == '-'   ? Hide(index)
                         : sign == '+' ? Show(index)
                         : sign == '>' ? TwirlOpen(index)
                                       : TwirlClosed(index));
    }
    return Sequence(groups);
}

Calls TracedStack::AfterReading(const std::vector<Calls>& changes) const
{
    std::vector<Calls> groups;
    for (const Calls& change : changes)
    {
        groups.push_back(ReadIdentities());
        groups.push_back(change);
    }
    return Sequence(groups);
}

TracedStack TracedStackOf(ProductHost& product, const std::vector<std::string>& labels)
{
    TracedStack stack{product.Id(), {}};
    for (const std::string& label : labels)
    {
        const EffectInstance& effect = product.host.Effect(label);
        const InstalledEffect& installed = *product.host.FindInstalled(effect.key);
        TracedEffect traced{label};
        traced.matchName = installed.matchName;
        traced.key = effect.key;
        traced.flags = effect.flags;
        traced.name = effect.customName.value_or(installed.defaultName);
        traced.parameterHidden = effect.parameters.size() > 1 && effect.parameters[1].hidden;
        const bool answers = installed.behaviour != nullptr || effect.behaviour != nullptr;
        traced.group = answers && effect.family.rigidity != Rigidity::rigid ? effect.family.group : -1;
        if (answers)
            traced.uuid = TextOf(effect.family.uuid);
        stack.effects.push_back(traced);
    }
    return stack;
}
} // namespace standin
