// The switches of the host are complete, and scenarios use each of them: the list in the header of the
// options, the table of words and the scenarios are compared.

#include "standin/host/core/HostSwitches.h"
#include "tests/support/FileText.h"

#include <gmock/gmock.h>
#include <set>

namespace standin
{
namespace
{
using ::testing::IsEmpty;
using ::testing::Not;

/// "NameLimit::published" and so on for each value that is no default, as the header has them.
std::multiset<std::string> valuesOfHeader()
{
    std::multiset<std::string> values;
    const std::string text = std::regex_replace(FileText(HOST_OPTIONS), std::regex("//.*"), "");
    const std::regex enumeration("enum class (\\w+)\\s*\\{([^}]*)\\}");
    for (std::sregex_iterator match(text.begin(), text.end(), enumeration); match != std::sregex_iterator();
         ++match)
    {
        const std::vector<std::string> names = FindAll((*match)[2], "(\\w+)");
        for (std::size_t i = 1; i < names.size(); ++i)
            values.insert(std::string((*match)[1]) + "::" + names[i]);
    }
    return values;
}

std::set<std::string> wordsOfScenarios()
{
    std::set<std::string> words;
    for (const auto& entry : std::filesystem::directory_iterator(SCENARIOS))
        if (entry.path().extension() == ".scenario")
            for (const std::string& word : FindAll(FileText(entry.path()), "(?:^|\\n)switch (\\S+)"))
                words.insert(word);
    return words;
}

TEST(Switches, EveryValueOfTheOptionsHasAWord)
{
    std::multiset<std::string> values;
    for (const HostSwitch& each : HostSwitches())
        values.insert(each.value);
    EXPECT_EQ(values, valuesOfHeader());
    EXPECT_THAT(values, Not(IsEmpty()));
}

TEST(Switches, EveryWordStandsForOneSwitch)
{
    for (const HostSwitch& each : HostSwitches())
        EXPECT_EQ(FindHostSwitch(each.word), &each) << each.word;
    EXPECT_EQ(FindHostSwitch("names-are-green"), nullptr);
}

TEST(Switches, EverySwitchIsThrownInSomeScenario)
{
    const std::set<std::string> thrown = wordsOfScenarios();
    for (const HostSwitch& each : HostSwitches())
        EXPECT_EQ(thrown.count(each.word), 1u) << each.word << " is thrown nowhere";
}
} // namespace
} // namespace standin
