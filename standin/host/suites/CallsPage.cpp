#include "standin/host/suites/CallsPage.h"

#include "standin/host/suites/SuiteDescription.h"

namespace standin
{
namespace
{
const char* wordFor(Access access)
{
    switch (access)
    {
    case Access::reads:
        return "reads";
    case Access::writesProject:
        return "writes the project";
    case Access::writesHost:
        return "writes the host";
    case Access::runsHooks:
        break;
    }
    return "may run hooks or an effect";
}

std::string rowFor(const SlotDescription& slot)
{
    return "| " + std::to_string(slot.slot) + " | `" + slot.function + "` | `" + slot.signature + "` | " +
           wordFor(slot.access) + " | " + slot.owner + " |\n";
}

std::string sectionFor(const SuiteDescription& suite)
{
    const std::string title =
        suite.name.empty() ? "Basic suite" : "\"" + suite.name + "\" " + std::to_string(suite.version);
    std::string text = "\n## " + title + "\n\n`" + suite.structName + "`, " +
                       std::to_string(suite.slotCount) + " slots. In a trace: `" + suite.ShortName() +
                       "`.\n\n";
    text += "| Slot | Function | Signature | Access | Who owns what comes out |\n|---|---|---|---|---|\n";
    for (int slot = 0; slot < suite.slotCount; ++slot)
        if (const SlotDescription* entry = suite.FindSlot(slot))
            text += rowFor(*entry);
    return text;
}
} // namespace

std::string CallsPage()
{
    std::string page =
        "# The host's calls\n\n"
        "The tables of functions that the stand-in host lays out, and that the plug-in uses of the real "
        "one. This page is\n"
        "made from the description in `standin/host/suites/`, and a test holds it to that: run it with\n"
        "`STANDIN_WRITE_CALLS_PAGE=1` to write the page again. Slots that are not listed are reserved: in "
        "the stand-in they\n"
        "are traps that report suite, version and slot.\n";
    for (const SuiteDescription& suite : SuiteDescriptions())
        page += sectionFor(suite);
    return page;
}
} // namespace standin
