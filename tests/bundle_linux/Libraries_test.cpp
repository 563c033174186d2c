// What the built bundle shows to the dynamic linker and what it asks of it.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <set>
#include <sstream>
#include <stdexcept>

namespace
{
/// The lines that a command writes about the bundle. It has to end well, and to write some.
std::vector<std::string> linesOf(const std::string& command)
{
    const std::string whole = command + " '" VORTAN_BUNDLE "' 2>&1";
    FILE* const pipe = popen(whole.c_str(), "r");
    if (pipe == nullptr)
        throw std::runtime_error(command + " does not run");
    std::vector<std::string> lines;
    char line[4096];
    while (std::fgets(line, sizeof line, pipe) != nullptr)
        lines.emplace_back(line, std::char_traits<char>::length(line) - 1);
    if (pclose(pipe) != 0)
        throw std::runtime_error(command + " fails" + (lines.empty() ? "" : ": " + lines[0]));
    if (lines.empty())
        throw std::runtime_error(command + " says nothing of the bundle");
    return lines;
}

std::vector<std::string> wordsOf(const std::string& line)
{
    std::istringstream words(line);
    return {std::istream_iterator<std::string>(words), {}};
}

/// "libX11.so.6" is "libX11".
std::string plainName(const std::string& library) { return library.substr(0, library.find(".so")); }

/// What a sanitized build adds of itself.
bool isSanitizers(const std::string& name) { return name == "libasan" || name == "libubsan"; }
} // namespace

TEST(Libraries, TheBundleExportsTheTwoEntryPointsAlone)
{
    std::vector<std::string> exported;
    for (const auto& line : linesOf("nm -D --defined-only"))
    {
        const auto words = wordsOf(line);
        ASSERT_EQ(words.size(), 3u) << line;
        exported.push_back(words[1] + " " + words[2]);
    }
    EXPECT_THAT(exported, testing::UnorderedElementsAre("T EffectorAEGP", "T PanelEntryPointFunc"));
}

// One of these would be shared with every other module of the process, and keep this one from being unloaded.
TEST(Libraries, TheBundleHasNoUniqueSymbol)
{
    int global = 0;
    for (const auto& line : linesOf("readelf --dyn-syms --wide"))
    {
        EXPECT_EQ(line.find(" UNIQUE "), std::string::npos) << line;
        global += line.find(" GLOBAL ") != std::string::npos ? 1 : 0;
    }
    EXPECT_GT(global, 2) << "the two entry points, and what the bundle needs";
}

TEST(Libraries, TheBundleNeedsTheseLibrariesAlone)
{
    std::set<std::string> needed;
    for (const auto& line : linesOf("readelf --dynamic --wide"))
    {
        if (line.find("(NEEDED)") == std::string::npos)
            continue;
        const auto start = line.find('[') + 1;
        const std::string name = plainName(line.substr(start, line.find(']') - start));
        if (!isSanitizers(name))
            needed.insert(name);
    }
    const std::set<std::string> allowed = {"libX11",   "libXi", "libXext",  "libfreetype",
                                           "libpng16", "libz",  "libjpeg",  "libstdc++",
                                           "libm",     "libc",  "libgcc_s", "ld-linux-x86-64"};
    for (const auto& name : needed)
        EXPECT_EQ(allowed.count(name), 1u) << name;
    for (const char* name : {"libX11", "libXi", "libfreetype", "libstdc++", "libc"})
        EXPECT_EQ(needed.count(name), 1u) << name;
}

TEST(Libraries, TheSystemHasAllThatTheBundleNeeds)
{
    int found = 0;
    for (const auto& line : linesOf("ldd"))
    {
        EXPECT_EQ(line.find("not found"), std::string::npos) << line;
        const auto arrow = line.find("=> ");
        if (arrow == std::string::npos)
            continue;
        const std::string path = line.substr(arrow + 3);
        EXPECT_TRUE(path.rfind("/lib", 0) == 0 || path.rfind("/usr/lib", 0) == 0) << line;
        ++found;
    }
    EXPECT_GE(found, 6);
}
