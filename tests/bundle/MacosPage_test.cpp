#include "tests/bundle/SourceText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace standin
{
namespace
{
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAreArray;

const std::string workflow = ".github/workflows/build.yml";

std::vector<std::string> findIn(const std::string& path, const std::string& pattern)
{
    return FindAll(SourceText(path), pattern);
}

std::vector<std::string> findOnPage(const std::string& pattern) { return findIn("docs/macos.md", pattern); }

bool isSwitch(const std::string& enumeration, const std::string& value)
{
    static const std::string headers =
        SourceText("standin/host/core/HostOptions.h") + SourceText("standin/host/core/Host.h");
    return std::regex_search(headers,
                             std::regex("enum class " + enumeration + "\\s*\\{[^}]*\\b" + value + "\\b"));
}

TEST(MacosPage, NamesSwitchesThatTheStandInHas)
{
    const std::vector<std::string> named = findOnPage("`([A-Z]\\w+::[a-z]\\w+)`");
    std::vector<std::string> unknown;
    for (const std::string& name : named)
    {
        const std::size_t colons = name.find("::");
        if (!isSwitch(name.substr(0, colons), name.substr(colons + 2)))
            unknown.push_back(name);
    }

    EXPECT_GT(named.size(), 20u);
    EXPECT_THAT(unknown, IsEmpty());
}

TEST(MacosPage, NamesOperationsThatTheStandInHas)
{
    const std::string header = SourceText("standin/host/core/Host.h");
    const std::vector<std::string> named = findOnPage("`Host::([A-Z]\\w+)`");
    std::vector<std::string> unknown;
    for (const std::string& name : named)
        if (header.find(" " + name + "(") == std::string::npos)
            unknown.push_back(name);

    EXPECT_GT(named.size(), 2u);
    EXPECT_THAT(unknown, IsEmpty());
}

TEST(MacosPage, NamesFilesThatAreThere)
{
    const std::vector<std::string> named = findOnPage("`((?:bundle|docs|standin|tests)/[\\w./]+)`");
    std::vector<std::string> missing;
    for (const std::string& name : named)
        if (!std::filesystem::exists(VORTAN_SOURCE_FOLDER "/" + name))
            missing.push_back(name);

    EXPECT_GT(named.size(), 2u);
    EXPECT_THAT(missing, IsEmpty());
}

TEST(MacosPage, NamesOptionsThatTheBuildHas)
{
    const std::string build = SourceText("bundle/CMakeLists.txt") + SourceText("cmake/VortanAbiCheck.cmake") +
                              SourceText("cmake/VortanBundle.cmake") + SourceText("cmake/VortanJuce.cmake") +
                              SourceText("cmake/VortanTargets.cmake");
    const std::vector<std::string> named = findOnPage("\\| `(VORTAN_\\w+)`");
    std::vector<std::string> unknown;
    for (const std::string& name : named)
        if (!std::regex_search(build, std::regex("(option|set)\\(" + name + " .*(\"|CACHE)")))
            unknown.push_back(name);

    EXPECT_EQ(named.size(), 6u);
    EXPECT_THAT(unknown, IsEmpty());
}

TEST(MacosPage, NamesTheSecretsThatTheWorkflowReads)
{
    const std::vector<std::string> read = findIn(workflow, "secrets\\.(\\w+)");

    EXPECT_EQ(read.size(), 6u);
    EXPECT_THAT(findOnPage("\\| `(MACOS_\\w+)`"), UnorderedElementsAreArray(read));
}

TEST(MacosPage, NamesTheJuceReleaseOfTheWorkflow)
{
    const std::vector<std::string> taken = findIn(workflow, "JUCE_VERSION: ([0-9.]+)");

    ASSERT_EQ(taken.size(), 1u);
    EXPECT_THAT(findOnPage("JUCE ([0-9.]+[0-9]) by the workflow"), ElementsAre(taken.front()));
}

} // namespace
} // namespace standin
