// A widget without a window asks to come to the front, which has no visible effect. The program's calls
// of juce::Component::toFront are the linker's to lead here.

#include "tests/tree/support/TreeTest.h"

#include <vector>

namespace
{
struct ToFront
{
    const juce::Component* component;
    bool grabsTheKeyboard;
};

std::vector<ToFront> calls;
} // namespace

extern "C" void __real__ZN4juce9Component7toFrontEb(juce::Component*, bool);
extern "C" void __wrap__ZN4juce9Component7toFrontEb(juce::Component*, bool);

extern "C" void __wrap__ZN4juce9Component7toFrontEb(juce::Component* component, bool grabsTheKeyboard)
{
    calls.push_back({component, grabsTheKeyboard});
    __real__ZN4juce9Component7toFrontEb(component, grabsTheKeyboard);
}

namespace standin
{
namespace
{
using Front = TreeTest;

TEST_F(Front, IsAskedForByTheFocusedWidget)
{
    deleteWidget();
    calls.clear();
    panel = CreateTreeWidget(false);
    ASSERT_EQ(calls.size(), 1u);
    EXPECT_EQ(calls[0].component, panel);
    EXPECT_TRUE(calls[0].grabsTheKeyboard);
}
} // namespace
} // namespace standin
