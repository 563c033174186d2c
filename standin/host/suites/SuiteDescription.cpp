#include "standin/host/suites/SuiteDescription.h"

#include <algorithm>

#include "standin/host/suites/Suites.h"

namespace standin
{
const SlotDescription* SuiteDescription::FindSlot(int slot) const
{
    const auto found = std::find_if(slots.begin(), slots.end(),
                                    [slot](const SlotDescription& entry) { return entry.slot == slot; });
    return found == slots.end() ? nullptr : &*found;
}

std::string SuiteDescription::ShortName() const
{
    if (name.empty())
        return "Basic";
    if (name == "AEGP Workspace Panel Suite")
        return "Panel 1";
    if (name == "PF AE App Suite")
        return "App 6";
    if (name == "SP Suites Suite")
        return "Suites 2";
    std::string text = name.substr(5, name.size() - 5 - 6); // Between "AEGP " and " Suite".
    text.erase(std::remove(text.begin(), text.end(), ' '), text.end());
    return text + " " + std::to_string(version);
}

const std::vector<SuiteDescription>& SuiteDescriptions()
{
    static const std::vector<SuiteDescription> all{
        DescribeBasicSuite(),          DescribeCommandSuite(),
        DescribeDynamicStreamSuite2(), DescribeDynamicStreamSuite5(),
        DescribeEffectSuite1(),        DescribeEffectSuite3(),
        DescribeItemSuite(),           DescribeLayerSuite(),
        DescribeRegisterSuite(),       DescribeStreamSuite4(),
        DescribeStreamSuite7(),        DescribeUtilitySuite3(),
        DescribeUtilitySuite7(),       DescribeUtilitySuite11(),
        DescribePanelSuite(),          DescribeAppSuite(),
        DescribeSuitesSuite()};
    return all;
}

const SuiteDescription& DescriptionOf(SuiteId id)
{
    return SuiteDescriptions().at(static_cast<std::size_t>(id));
}

const SuiteDescription* FindSuite(const std::string& name, A_long version)
{
    for (const SuiteDescription& suite : SuiteDescriptions())
        if (!suite.name.empty() && suite.name == name && suite.version == version)
            return &suite;
    return nullptr;
}
} // namespace standin
