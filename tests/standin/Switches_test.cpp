// The switches of the host are complete, and each of them is thrown: the list in the header of the options,
// the table of words, and what the scenarios say are held against each other.

#include "standin/host/core/HostSwitches.h"

#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <regex>
#include <set>
#include <sstream>

namespace standin
{
namespace
{
using ::testing::IsEmpty;
using ::testing::Not;

std::string textOf(const std::filesystem::path& file)
{
    std::ifstream stream(file);
    std::ostringstream text;
    text << stream.rdbuf();
    return text.str();
}

/// The matches of the pattern's first group.
std::vector<std::string> allOf(const std::string& text, const std::string& pattern)
{
    std::vector<std::string> found;
    const std::regex expression(pattern);
    for (std::sregex_iterator match(text.begin(), text.end(), expression); match != std::sregex_iterator();
         ++match)
        found.push_back((*match)[1]);
    return found;
}

/// "NameLimit::published" and so on for each value that is no default, as the header has them.
std::multiset<std::string> valuesOfHeader()
{
    std::multiset<std::string> values;
    const std::string text = std::regex_replace(textOf(HOST_OPTIONS), std::regex("//.*"), "");
    const std::regex enumeration("enum class (\\w+)\\s*\\{([^}]*)\\}");
    for (std::sregex_iterator match(text.begin(), text.end(), enumeration); match != std::sregex_iterator();
         ++match)
    {
        const std::vector<std::string> names = allOf((*match)[2], "(\\w+)");
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
            for (const std::string& word : allOf(textOf(entry.path()), "(?:^|\\n)switch (\\S+)"))
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
