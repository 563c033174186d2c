// Compares the host's interface as this project declares it with the host's own headers, for those who
// have them: sizes, constants, the place of each function in its table, and its signature.
// One line per difference; the exit code is 0 if there is none.

#include "bundle/abi/OurInterface.h"

#include "bundle/abi/CheckedNames.h"
#include "bundle/abi/SameShape.h"

#include <cstdio>

#define VORTAN_KEEP_CONSTANT(name) constexpr long long our_##name = static_cast<long long>(ours::name);
VORTAN_CHECKED_CONSTANTS(VORTAN_KEEP_CONSTANT)

// Includes the headers that the build has found in the folder.
#include "HostSdkHeaders.h"

/// Only the host knows what a panel's handle points at.
template <>
constexpr bool abi::isOfAnyDepth<ours::_AEGP_Panel> = true;

namespace
{
class Report
{
public:
    void Tell(bool isSame, const char* what, const char* name, const char* member = nullptr)
    {
        ++compared;
        if (isSame)
            return;
        ++different;
        std::printf("DIFFERS  %s%s%s: %s\n", name,
                    member == nullptr ? "" : "::", member == nullptr ? "" : member, what);
    }

    int Close() const
    {
        std::printf("%d compared, %d different\n", compared, different);
        return different == 0 ? 0 : 1;
    }

private:
    int compared = 0;
    int different = 0;
};

/// Compares one member of two structures. `probe` can be called with a structure that has the member, and
/// then gives its place; `TypeOf` its type.
template <class OurMember, class Theirs, class Probe>
void compareMember(Report& report, const char* table, const char* member, std::size_t ourPlace, Probe probe)
{
    if constexpr (std::is_invocable_v<Probe, Theirs*>)
    {
        const auto found = probe(static_cast<Theirs*>(nullptr));
        report.Tell(found.place == ourPlace, "another place", table, member);
        report.Tell(abi::isSameShape<OurMember, typename decltype(found)::Type>(), "another type", table,
                    member);
    }
    else
    {
        report.Tell(false, "not there", table, member);
    }
}

template <class MemberType>
struct Found
{
    using Type = MemberType;
    std::size_t place;
};

void compareScalars(Report& report)
{
#define VORTAN_COMPARE_SCALAR(name)                                                                          \
    report.Tell(abi::isSameShape<ours::name, ::name>(), "another size, sign or depth", #name);
    VORTAN_CHECKED_SCALARS(VORTAN_COMPARE_SCALAR)
}

void compareConstants(Report& report)
{
#define VORTAN_COMPARE_CONSTANT(name)                                                                        \
    report.Tell(our_##name == static_cast<long long>(name), "another value", #name);
    VORTAN_CHECKED_CONSTANTS(VORTAN_COMPARE_CONSTANT)
}

void compareTables(Report& report)
{
#define VORTAN_COMPARE_TABLE(name) report.Tell(sizeof(ours::name) == sizeof(::name), "another size", #name);
    VORTAN_CHECKED_TABLES(VORTAN_COMPARE_TABLE)
}

void compareMembers(Report& report)
{
#define VORTAN_COMPARE_MEMBER(table, member)                                                                 \
    compareMember<decltype(ours::table::member), ::table>(                                                   \
        report, #table, #member, offsetof(ours::table, member),                                              \
        [](auto* theirs) -> Found<decltype(theirs->member)>                                                  \
        { return {offsetof(std::remove_pointer_t<decltype(theirs)>, member)}; });
    VORTAN_CHECKED_MEMBERS(VORTAN_COMPARE_MEMBER)
}

/// The time conversion goes by another name where a table has one for each direction, so its slot is
/// compared by the slot alone.
void compareTimeConversion(Report& report)
{
    using Slot = decltype(ours::AEGP_LayerSuite1::AEGP_ConvertLayerToCompTime);
    report.Tell(sizeof(::AEGP_LayerSuite1) > 33 * sizeof(Slot), "too short for the time conversion",
                "AEGP_LayerSuite1");
}
} // namespace

int main()
{
    Report report;
    compareScalars(report);
    compareConstants(report);
    compareTables(report);
    compareMembers(report);
    compareTimeConversion(report);
    return report.Close();
}
