#pragma once
// From a function written with roles to the C function that stands in a table, and the builder with
// which each suite lists its slots.

#include <tuple>
#include <utility>

#include "standin/host/sensors/FindingIds.h"
#include "standin/host/suites/Arguments.h"
#include "standin/host/suites/CallScope.h"
#include "standin/host/suites/SuiteDescription.h"

namespace standin
{
inline void Append(std::string& list, const std::string& text)
{
    if (!text.empty())
        list += (list.empty() ? "" : ", ") + text;
}

/// The C function for `function`, which sits in this slot of this table. `excuse`, if there is one,
/// is called in place of the function when a fault makes the call fail.
template <class... Roles>
struct EntryOf
{
    using Function = A_Err (*)(HostParts&, Roles...);

    template <SuiteId suite, int slot, Function function, Function excuse>
    static A_Err Call(typename Roles::Abi... arguments)
    {
        CallScope scope(suite, slot);
        if (!scope.IsOpen())
            return errGeneric;
        std::tuple<Roles...> roles{Roles(arguments)...};
        std::apply([&](auto&... role) { run<function, excuse>(scope, role...); }, roles);
        scope.IdleIfDue();
        return scope.Error();
    }

    static std::string Signature()
    {
        std::string list;
        (Append(list, Roles::abiName), ...);
        return "A_Err (" + (list.empty() ? "void" : list) + ")";
    }

    static std::string Owner()
    {
        std::string list;
        (Append(list, Roles::owner), ...);
        return list;
    }

private:
    template <Function function, Function excuse>
    static void run(CallScope& scope, Roles&... roles)
    {
        HostParts& parts = scope.Parts();
        std::string printed;
        (Append(printed, roles.Print(parts)), ...);
        scope.Begin(printed, (Roles::isOut || ...));
        if (!scope.MayProceed())
        {
            if (scope.WasStruck() && excuse != nullptr)
                (void)excuse(parts, roles...);
            (roles.Spoil(scope.OutsOfFault()), ...);
            return;
        }
        if ((roles.IsMissing() || ...))
        {
            parts.sensors.Report(finding::nullPointer,
                                 "A text, a time, a hook or a place for an answer is null.");
            scope.SetError(errParameter);
            return;
        }
        scope.SetError(function(parts, roles...));
        std::string answers;
        if (scope.Error() == errNone)
            (Append(answers, roles.Answer(parts)), ...);
        scope.SetAnswers(answers);
    }
};

template <class... Roles>
EntryOf<Roles...> EntryFor(A_Err (*)(HostParts&, Roles...));

template <SuiteId suite, int slot>
A_Err Trap()
{
    return SpringTrap(suite, slot);
}

/// Builds the description of one table; slots that are not listed become traps.
template <SuiteId suite, int slotCount>
class SuiteBuilder
{
public:
    SuiteBuilder(const char* name, A_long version, const char* structName)
    {
        description.name = name;
        description.version = version;
        description.structName = structName;
        description.slotCount = slotCount;
        fillWithTraps(std::make_integer_sequence<int, slotCount>());
    }

    template <int slot, auto function, decltype(function) excuse = nullptr>
    SuiteBuilder& Slot(const char* name, Access access)
    {
        static_assert(slot >= 0 && slot < slotCount, "the slot lies in the table");
        using Entry = decltype(EntryFor(function));
        const auto entry =
            reinterpret_cast<AnyFunction>(&Entry::template Call<suite, slot, function, excuse>);
        return Add({slot, name, Entry::Signature(), access, Entry::Owner(), entry});
    }

    SuiteBuilder& Add(const SlotDescription& slot)
    {
        description.table[static_cast<std::size_t>(slot.slot)] = slot.entry;
        description.slots.push_back(slot);
        return *this;
    }

    SuiteDescription Done() { return std::move(description); }

private:
    template <int... slots>
    void fillWithTraps(std::integer_sequence<int, slots...>)
    {
        description.table = {reinterpret_cast<AnyFunction>(&Trap<suite, slots>)...};
    }

    SuiteDescription description;
};
} // namespace standin
