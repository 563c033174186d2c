// docs/host-calls.md says what the description of the tables says.

#include <cstdlib>
#include <fstream>
#include <sstream>

#include <gtest/gtest.h>

#include "standin/host/suites/CallsPage.h"

namespace standin
{
namespace
{
std::string contentsOf(const char* path)
{
    std::ifstream file(path);
    std::stringstream contents;
    contents << file.rdbuf();
    return contents.str();
}

TEST(CallsPage, InDocsEqualsTheDescription)
{
    if (std::getenv("STANDIN_WRITE_CALLS_PAGE") != nullptr)
        std::ofstream(CALLS_PAGE) << CallsPage();
    EXPECT_EQ(contentsOf(CALLS_PAGE), CallsPage());
}

TEST(CallsPage, HasARowForEachFunction)
{
    const std::string page = CallsPage();
    EXPECT_NE(
        page.find("| 7 | `AEGP_EffectCallGeneric` | `A_Err (AEGP_PluginID, AEGP_EffectRefH, const A_Time*, "
                  "A_long, void*)` | may run hooks or an effect |  |"),
        std::string::npos);
    EXPECT_NE(page.find("| 15 | `AEGP_GetNewParentStreamRef` | `A_Err (AEGP_PluginID, AEGP_StreamRefH, "
                        "AEGP_StreamRefH*)` | reads | the caller: AEGP_DisposeStream |"),
              std::string::npos);
}
} // namespace
} // namespace standin
