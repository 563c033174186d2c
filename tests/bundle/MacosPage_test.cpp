#include "tests/bundle/ResourceReader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <regex>

namespace standin
{
namespace
{
using testing::IsEmpty;

std::string sourceText(const std::string& path)
{
    const Bytes bytes = ReadFile(VORTAN_SOURCE_FOLDER "/" + path);
    return std::string(bytes.begin(), bytes.end());
}

/// The first groups of all matches on the page.
std::vector<std::string> findOnPage(const std::string& pattern)
{
    const std::string page = sourceText("docs/macos.md");
    const std::regex expression(pattern);
    std::vector<std::string> found;
    for (std::sregex_iterator match(page.begin(), page.end(), expression), end; match != end; ++match)
        found.push_back((*match)[1]);
    return found;
}

bool isSwitch(const std::string& enumeration, const std::string& value)
{
    static const std::string headers =
        sourceText("standin/core/HostOptions.h") + sourceText("standin/core/Host.h");
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
    const std::string header = sourceText("standin/core/Host.h");
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
    const std::string build = sourceText("bundle/CMakeLists.txt") + sourceText("cmake/VortanAbiCheck.cmake") +
                              sourceText("cmake/VortanBundle.cmake") + sourceText("cmake/VortanJuce.cmake");
    const std::vector<std::string> named = findOnPage("\\| `(VORTAN_\\w+)`");
    std::vector<std::string> unknown;
    for (const std::string& name : named)
        if (!std::regex_search(build, std::regex("(option|set)\\(" + name + " .*(\"|CACHE)")))
            unknown.push_back(name);

    EXPECT_EQ(named.size(), 5u);
    EXPECT_THAT(unknown, IsEmpty());
}

} // namespace
} // namespace standin
