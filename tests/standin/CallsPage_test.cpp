// docs/host-calls.md says what the description of the tables says.

#include "standin/host/suites/CallsPage.h"
#include "tests/support/FileText.h"

#include <cstdlib>
#include <gtest/gtest.h>

namespace standin
{
namespace
{
TEST(CallsPage, InDocsEqualsTheDescription)
{
    if (std::getenv("STANDIN_WRITE_CALLS_PAGE") != nullptr)
        std::ofstream(CALLS_PAGE) << CallsPage();
    EXPECT_EQ(FileText(CALLS_PAGE), CallsPage());
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
