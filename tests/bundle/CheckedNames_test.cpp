#include "tests/bundle/SourceText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace standin
{
namespace
{
using testing::IsEmpty;

bool isChecked(const std::string& table, const std::string& member)
{
    static const std::string lists = SourceText("bundle/abi/CheckedNames.h");
    const bool isInSharedList = lists.find("CHECK(suite, " + member + ")") != std::string::npos &&
                                lists.find("(CHECK, " + table + ")") != std::string::npos;
    return isInSharedList || lists.find("CHECK(" + table + ", " + member + ")") != std::string::npos;
}

bool isChecked(const std::string& name)
{
    static const std::string lists = SourceText("bundle/abi/CheckedNames.h");
    return lists.find("CHECK(" + name + ")") != std::string::npos;
}

std::vector<std::string> unchecked(const std::vector<std::string>& names)
{
    std::vector<std::string> missing;
    for (const std::string& name : names)
        if (!isChecked(name))
            missing.push_back(name);
    return missing;
}

TEST(CheckedNames, HoldEveryFunctionOfEveryTable)
{
    const std::string header = SourceText("host/HostSuites.h");
    const std::regex tablePattern("struct (\\w+)\\n\\{([^}]*)\\};");
    int functions = 0;
    std::vector<std::string> missing;
    for (std::sregex_iterator table(header.begin(), header.end(), tablePattern), end; table != end; ++table)
    {
        for (const std::string& function : FindAll((*table)[2], "\\(\\*(\\w+)\\)"))
        {
            ++functions;
            // It has another name in tables with one conversion for each direction.
            if (!isChecked((*table)[1], function) && function != "AEGP_ConvertLayerToCompTime")
                missing.push_back((*table)[1].str() + "::" + function);
        }
        if (!isChecked((*table)[1]))
            missing.push_back((*table)[1]);
    }

    EXPECT_GT(functions, 70);
    EXPECT_THAT(missing, IsEmpty());
}

TEST(CheckedNames, HoldEveryScalarAndHandle)
{
    const std::vector<std::string> names = FindAll(SourceText("host/HostTypes.h"), "using (\\w+) =");

    EXPECT_THAT(names, testing::Contains("A_long"));
    std::vector<std::string> missing = unchecked(names);
    // Ours alone: what the host answers to a comparison of texts, which this system never asks for.
    missing.erase(std::remove(missing.begin(), missing.end(), "SPBoolean"), missing.end());
    EXPECT_THAT(missing, IsEmpty());
}

TEST(CheckedNames, HoldEveryConstant)
{
    const std::vector<std::string> names =
        FindAll(SourceText("host/HostTypes.h"), "\\b((?:AEGP|PF|A)_\\w+) = -?\\d");

    EXPECT_THAT(names, testing::Contains("PF_Cmd_COMPLETELY_GENERAL"));
    EXPECT_THAT(unchecked(names), IsEmpty());
}

} // namespace
} // namespace standin
