// What the built bundle shows to the dynamic linker and what it asks of it.

#include "tests/support/ProgramRun.h"

#include <set>

using standin::LinesOf;

namespace
{
/// "libX11.so.6" is "libX11".
std::string plainName(const std::string& library) { return library.substr(0, library.find(".so")); }

/// What a sanitized build adds of itself.
bool isSanitizers(const std::string& name) { return name == "libasan" || name == "libubsan"; }
} // namespace

// One of these would be shared with every other module of the process, and keep this one from being unloaded.
TEST(Libraries, TheBundleHasNoUniqueSymbol)
{
    int global = 0;
    for (const auto& line : LinesOf({"readelf", "--dyn-syms", "--wide", VORTAN_BUNDLE}))
    {
        EXPECT_EQ(line.find(" UNIQUE "), std::string::npos) << line;
        global += line.find(" GLOBAL ") != std::string::npos ? 1 : 0;
    }
    EXPECT_GT(global, 2) << "the two entry points, and what the bundle needs";
}

TEST(Libraries, TheBundleNeedsTheseLibrariesAlone)
{
    std::set<std::string> needed;
    for (const auto& line : LinesOf({"readelf", "--dynamic", "--wide", VORTAN_BUNDLE}))
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
    for (const auto& line : LinesOf({"ldd", VORTAN_BUNDLE}))
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
