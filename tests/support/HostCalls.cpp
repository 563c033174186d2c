#include "tests/support/HostCalls.h"

namespace standin
{
namespace
{
std::string textOf(std::size_t number) { return std::to_string(number); }
std::string textOf(int number) { return std::to_string(number); }
} // namespace

Calls operator+(Calls first, const Calls& second)
{
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

Calls CallsOfMessage(const TracedStack& stack, std::size_t index, const std::string& sent,
                     const std::string& answer)
{
    const std::string& layer = stack.layer;
    const std::string count = textOf(stack.effects.size());
    const std::string effect = "effect " + stack.effects.at(index).label;
    const std::string flags = textOf(stack.effects.at(index).flags);
    return {
        "Layer 5 AEGP_ConvertLayerToCompTime(" + layer + ", time 0/100) -> time 0/100",
        "Effect 1 AEGP_GetLayerNumEffects(" + layer + ") -> " + count,
        "Effect 1 AEGP_GetLayerEffectByIndex(id 7, " + layer + ", " + textOf(index) + ") -> " + effect,
        "Effect 1 AEGP_GetEffectFlags(" + effect + ") -> " + flags,
        "Effect 3 AEGP_EffectCallGeneric(id 7, " + effect + ", time 0/100, 17, " + sent + ")" +
            (answer.empty() ? "" : " -> " + answer),
        "Effect 3 AEGP_DisposeEffect(" + effect + ")",
    };
}

Calls CallsOfGroupQuestion(const TracedStack& stack, std::size_t index)
{
    return CallsOfMessage(stack, index, "VORT 1 group -1", "group " + textOf(stack.effects.at(index).group));
}

Calls CallsOfIdentityQuestion(const TracedStack& stack, std::size_t index)
{
    return CallsOfMessage(stack, index, "VORT 5 uuid 00000000-0000-0000-0000-000000000000",
                          "uuid " + stack.effects.at(index).uuid);
}

Calls CallsOfGroupOrder(const TracedStack& stack, std::size_t index, int group)
{
    return CallsOfMessage(stack, index, "VORT 3 group " + textOf(group), "");
}

Calls CallsOfIdentityQuestions(const TracedStack& stack)
{
    Calls calls;
    for (std::size_t i = 0; i < stack.effects.size(); ++i)
        calls = calls + CallsOfIdentityQuestion(stack, i);
    return calls;
}

Calls CallsOfHostRead(const TracedStack& stack, std::size_t index)
{
    const TracedEffect& traced = stack.effects.at(index);
    const std::string& label = traced.label;
    const std::string key = textOf(traced.key);
    return {
        "Effect 1 AEGP_GetLayerEffectByIndex(id 7, " + stack.layer + ", " + textOf(index) + ") -> effect " +
            label,
        "Effect 1 AEGP_GetInstalledKeyFromLayerEffect(effect " + label + ") -> " + key,
        "Effect 1 AEGP_GetEffectMatchName(" + key + ") -> \"" + traced.matchName + "\"",
        "Stream 4 AEGP_GetNewEffectStreamByIndex(id 7, effect " + label + ", 1) -> stream " + label + ".1",
        "DynamicStream 2 AEGP_GetNewParentStreamRef(id 7, stream " + label + ".1) -> stream " + label,
        "Effect 1 AEGP_GetEffectFlags(effect " + label + ") -> " + textOf(traced.flags),
        "Stream 4 AEGP_GetStreamName(stream " + label + ", 1) -> \"" + traced.name + "\"",
        "Stream 7 AEGP_DisposeStream(stream " + label + ".1)",
        "Stream 7 AEGP_DisposeStream(stream " + label + ")",
        "Effect 1 AEGP_DisposeEffect(effect " + label + ")",
    };
}

Calls CallsOfRead(const TracedStack& stack)
{
    Calls calls = {"Effect 1 AEGP_GetLayerNumEffects(" + stack.layer + ") -> " +
                   textOf(stack.effects.size())};
    for (std::size_t i = 0; i < stack.effects.size(); ++i)
        calls = calls + CallsOfGroupQuestion(stack, i);
    calls = calls + CallsOfIdentityQuestions(stack);
    for (std::size_t i = 0; i < stack.effects.size(); ++i)
        calls = calls + CallsOfHostRead(stack, i);
    return calls;
}

Calls CallsOfReadWithSuites(const TracedStack& stack)
{
    Calls calls = CallsOfRead(stack);
    const std::size_t host = 1 + 12 * stack.effects.size(); // Where the first host read starts.
    const auto insert = [&calls](std::size_t place, const std::string& suite)
    {
        calls.insert(calls.begin() + static_cast<std::ptrdiff_t>(place),
                     "Basic AcquireSuite(\"AEGP " + suite + ")");
    };
    // From the end to the start, so that the places in front keep their numbers.
    insert(host + 7, "Stream Suite\", 7");         // The first disposal of a stream.
    insert(host + 4, "Dynamic Stream Suite\", 2"); // The first parent.
    insert(host + 3, "Stream Suite\", 4");         // The first parameter stream.
    insert(1 + 4, "Effect Suite\", 3");            // The first general command.
    insert(1, "Layer Suite\", 5");                 // The first conversion of a time.
    insert(0, "Effect Suite\", 1");                // The count.
    return calls + Calls{
                       "Basic ReleaseSuite(\"AEGP Dynamic Stream Suite\", 2)",
                       "Basic ReleaseSuite(\"AEGP Effect Suite\", 1)",
                       "Basic ReleaseSuite(\"AEGP Effect Suite\", 3)",
                       "Basic ReleaseSuite(\"AEGP Layer Suite\", 5)",
                       "Basic ReleaseSuite(\"AEGP Stream Suite\", 4)",
                       "Basic ReleaseSuite(\"AEGP Stream Suite\", 7)",
                   };
}
} // namespace standin
