#pragma once
// A tree without a user interface: the functions of tree/Tree.h over plain lists. It behaves as the real
// one does for its user, and a test reads and edits its contents directly.

#include "effects/ObjectItem.h"

#include <array>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

struct _TreeStateTable_Internal;

/// Every call of a function of tree/Tree.h, as text, in order. A test that wants them in one list with
/// the host's calls sets `sink`.
struct FakeTreeLog
{
    std::vector<std::string> calls;
    std::function<void(const std::string&)> sink;
    std::function<void(void* embeddedView, void* nativeParent)> onAddToDesktop;
    _TreeStateTable_Internal* lastTable =
        nullptr; ///< The one made last, for tests in which it is not stored.

    void Add(const std::string& call);
    void Clear() { calls.clear(); }
};

/// The log of all fake trees of the test. Cleared by the test's fixture.
FakeTreeLog& TreeLog();

/// What the opaque widget is.
class ValueTreesDemo
{
public:
    bool hasRoot = false;
    std::vector<ObjectItem> objects; ///< In display order; outside effects are not among them.
    std::vector<std::string> selectedUuids;
    std::string openness; ///< Stands for openness and scroll position.
    std::vector<int> keysToBeAdded;
    std::vector<std::string> effectsToBeRemoved;
    std::vector<std::string> notifications;
    std::array<float, 4> background{}; ///< Red, green, blue, alpha.
    std::vector<std::tuple<VN_OBJECT_TYPE, int, std::string>> entries;

    /// The text that the state table compares and restores.
    std::string State() const;
    void Restore(const std::string& state);
};

/// What the opaque state table is. A used-up entry is empty.
struct _TreeStateTable_Internal
{
    std::map<int, std::string> states;
};
