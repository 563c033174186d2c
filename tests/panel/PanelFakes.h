#pragma once
// Stands in for the host's suites and the catalogue of effects where no stand-in host can be: for lists that
// the catalogue never gives, and in the tests of the AppKit sources. The tree is the fake one; all calls are
// in its log.

#include "host/HostSuites.h"
#include "tests/support/FakeTree.h"

#include <map>
#include <set>
#include <string>
#include <vector>

namespace standin
{
/// One at a time: it stands in for free functions, and the newest object answers them.
class PanelFakes
{
public:
    PanelFakes();
    ~PanelFakes();
    PanelFakes(const PanelFakes&) = delete;
    PanelFakes& operator=(const PanelFakes&) = delete;

    static PanelFakes& Current();

    /// The calls since the last time it was asked, one text each.
    std::vector<std::string> TakeCalls();

    SPBasicSuite basicSuite;

    // The answers.
    std::set<std::string> missingSuites;                   ///< By name.
    std::map<std::string, std::vector<int>> keys;          ///< By the prefix that is looked for.
    std::map<std::string, std::vector<std::string>> names; ///< By "src", "eff" and "ren".
    int mainKey = 0;
};
} // namespace standin
