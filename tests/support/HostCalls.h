#pragma once
// The host calls of a message and of a read, written out as the trace of the stand-in writes them.
// Tests put them together to whole expected sequences; plug-in id 7 makes the calls.

#include <string>
#include <vector>

namespace standin
{
using Calls = std::vector<std::string>;

/// Puts sequences behind each other.
Calls operator+(Calls first, const Calls& second);

/// What the trace tells about one effect of a stack.
struct TracedEffect
{
    std::string label;
    int key = 0;
    std::string matchName;
    std::string name;
    int group = -1;                                            ///< Its answer.
    std::string uuid = "00000000-0000-0000-0000-000000000000"; ///< Its answer.
    int flags = 1;
};

/// A layer's stack from the top, for a layer whose time 0 lies at the composition's.
struct TracedStack
{
    std::string layer; ///< "layer 1".
    std::vector<TracedEffect> effects;
};

/// One message to the effect at `index`: `sent` as "VORT 1 group -1", `answer` as "group 3", empty for none.
Calls CallsOfMessage(const TracedStack& stack, std::size_t index, const std::string& sent,
                     const std::string& answer);

/// The question for the group, the question for the identity, and the telling of a group.
Calls CallsOfGroupQuestion(const TracedStack& stack, std::size_t index);
Calls CallsOfIdentityQuestion(const TracedStack& stack, std::size_t index);
Calls CallsOfGroupOrder(const TracedStack& stack, std::size_t index, int group);

/// The identity questions to the whole stack.
Calls CallsOfIdentityQuestions(const TracedStack& stack);

/// What the host is asked about the effect at `index` in a read.
Calls CallsOfHostRead(const TracedStack& stack, std::size_t index);

/// A whole read: the count, all groups, all identities, then the host reads. Without suite traffic.
Calls CallsOfRead(const TracedStack& stack);

/// The same with the suites acquired at first use and released at the end. For a stack that is not empty.
Calls CallsOfReadWithSuites(const TracedStack& stack);
} // namespace standin
