// The seven slots through which everything else is had.

#include <cstdlib>
#include <cstring>

#include "standin/host/suites/Entry.h"
#include "standin/host/suites/Suites.h"

namespace standin
{
namespace
{
A_Err refuse(HostParts& parts, OutTable out, Withheld how)
{
    if (how == Withheld::asPoisonedPointer)
        *out.value = PoisonTable();
    else if (how == Withheld::asNullTable || parts.options.failedAcquire == FailedAcquire::givesNull)
        *out.value = nullptr;
    return how == Withheld::asNullTable ? errNone : errSuiteNotFound;
}

const void* findTable(HostParts& parts, const char* name, A_long version)
{
    if (const SuiteDescription* suite = FindSuite(name, version))
        return suite->table.data();
    const auto found = parts.plugins.published.find({name, version});
    return found == parts.plugins.published.end() ? nullptr : found->second.table;
}

A_Err acquireSuite(HostParts& parts, TextArg<char> name, NumberArg<A_long> version, OutTable out)
{
    if (const std::optional<Withheld> withheld = parts.sensors.faults.IsWithheld(name.Text(), version.value))
        return refuse(parts, out, *withheld);
    const void* table = findTable(parts, name.Text(), version.value);
    if (table == nullptr)
        return refuse(parts, out, Withheld::asError);
    parts.sensors.suites.Acquired(name.Text(), version.value);
    *out.value = table;
    return errNone;
}

A_Err releaseSuite(HostParts& parts, TextArg<char> name, NumberArg<A_long> version)
{
    const bool unused = !parts.sensors.suites.WasUsed(name.Text(), version.value);
    if (!parts.sensors.suites.Released(name.Text(), version.value))
    {
        parts.sensors.Report(finding::overReleasedSuite,
                             "The suite is released more often than it was acquired.");
        return errSuiteOverReleased;
    }
    const bool isHostSuite = FindSuite(name.Text(), version.value) != nullptr;
    if (unused && isHostSuite && parts.options.unusedAcquire == UnusedAcquire::isFinding)
        parts.sensors.Report(finding::unusedSuite, "The suite was not used since it was acquired.");
    return errNone;
}

/// A fault made the release fail: the holder has done what it could, and the count comes down.
A_Err excuseRelease(HostParts& parts, TextArg<char> name, NumberArg<A_long> version)
{
    if (name.value != nullptr)
        (void)parts.sensors.suites.Released(name.Text(), version.value);
    return errNone;
}

/// The result is no error here, so it does not go through an Entry.
A_long isEqual(const char* first, const char* second)
{
    CallScope scope(SuiteId::basic, 2);
    if (!scope.IsOpen())
        return 0;
    scope.Begin(PrintText(first) + ", " + PrintText(second));
    const bool proceeds = scope.MayProceed() && first != nullptr && second != nullptr;
    const A_long result = proceeds && std::strcmp(first, second) == 0 ? 1 : 0;
    if (proceeds)
        scope.SetAnswers(std::to_string(result));
    scope.IdleIfDue();
    return result;
}

struct SizeArg : Argument
{
    using Abi = std::size_t;
    static constexpr const char* abiName = "size_t";
    std::size_t value;
    explicit SizeArg(std::size_t v) : value(v) {}
    std::string Print(HostParts&) const { return std::to_string(value); }
};

A_Err giveBlock(HostParts& parts, void* block, OutPointer out)
{
    *out.value = block;
    if (block == nullptr)
        return errAlloc;
    parts.plugins.blocks.all[block] = {parts.sensors.running.back().function,
                                       parts.sensors.running.back().head};
    return errNone;
}

/// Takes the block from the books. False, with a finding, for one that is not in them.
bool takeBlock(HostParts& parts, void* block)
{
    if (parts.plugins.blocks.all.erase(block) != 0)
        return true;
    parts.sensors.Report(finding::foreignBlock,
                         "The block is none that the host has allocated, or freed already.");
    return false;
}

A_Err allocateBlock(HostParts& parts, SizeArg size, OutPointer out)
{
    return giveBlock(parts, std::malloc(size.value), out);
}

A_Err freeBlock(HostParts& parts, KeptArg<void*> block)
{
    if (!takeBlock(parts, block.value))
        return errBadParameter;
    std::free(block.value);
    return errNone;
}

/// A fault made the freeing fail: the holder has done what it could.
A_Err excuseFreeing(HostParts& parts, KeptArg<void*> block)
{
    if (parts.plugins.blocks.all.erase(block.value) != 0)
        std::free(block.value);
    return errNone;
}

A_Err reallocateBlock(HostParts& parts, KeptArg<void*> block, SizeArg size, OutPointer out)
{
    if (block.value != nullptr && !takeBlock(parts, block.value))
        return errBadParameter;
    return giveBlock(parts, std::realloc(block.value, size.value), out);
}

A_Err undefined(HostParts&) { return errNotImplemented; }
} // namespace

SuiteDescription DescribeBasicSuite()
{
    return SuiteBuilder<SuiteId::basic, 7>("", 0, "SPBasicSuite")
        .Slot<0, acquireSuite>("AcquireSuite", Access::writesHost)
        .Slot<1, releaseSuite, excuseRelease>("ReleaseSuite", Access::writesHost)
        .Add({2, "IsEqual", "SPBoolean (const A_char*, const A_char*)", Access::reads, "",
              reinterpret_cast<AnyFunction>(&isEqual)})
        .Slot<3, allocateBlock>("AllocateBlock", Access::writesHost)
        .Slot<4, freeBlock, excuseFreeing>("FreeBlock", Access::writesHost)
        .Slot<5, reallocateBlock>("ReallocateBlock", Access::writesHost)
        .Slot<6, undefined>("Undefined", Access::reads)
        .Done();
}
} // namespace standin
