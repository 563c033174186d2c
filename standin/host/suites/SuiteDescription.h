#pragma once
// The one description of the host's tables. The tables themselves, the trace, the fault points and
// docs/host-calls.md all come from it.

#include <string>
#include <vector>

#include "standin/host/core/Abi.h"

namespace standin
{
/// One value for each table, in the order of the description.
enum class SuiteId
{
    basic,
    command1,
    dynamicStream2,
    dynamicStream5,
    effect1,
    effect3,
    item3,
    layer5,
    register6,
    stream4,
    stream7,
    utility3,
    utility7,
    utility11,
    panel1,
    app6,
    suites2
};

/// What a call changes.
enum class Access
{
    reads,
    writesProject, ///< Undoable, except where an argument says otherwise.
    writesHost,    ///< Registrations, menus, undo groups, reference counts.
    runsHooks      ///< May run hooks of plug-ins, or an effect, before it returns.
};

using AnyFunction = void (*)();

struct SlotDescription
{
    int slot = 0;
    std::string function;
    std::string signature;
    Access access = Access::reads;
    std::string owner; ///< Who owns the out-value; empty if there is nothing to own.
    AnyFunction entry = nullptr;
};

struct SuiteDescription
{
    std::string name;
    A_long version = 0;
    std::string structName;
    int slotCount = 0;
    std::vector<SlotDescription> slots; ///< Without the reserved ones.
    std::vector<AnyFunction> table;     ///< All slots; the reserved ones are traps.

    const SlotDescription* FindSlot(int slot) const;
    /// As the trace calls it: "Effect 1", "Basic".
    std::string ShortName() const;
};

/// All tables, indexed by SuiteId.
const std::vector<SuiteDescription>& SuiteDescriptions();
const SuiteDescription& DescriptionOf(SuiteId id);
/// Null for a suite that the host does not have.
const SuiteDescription* FindSuite(const std::string& name, A_long version);
} // namespace standin
